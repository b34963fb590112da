// The palettes of menus and tips: windows of their own, which lie in none of the library's, and have one
// palette for a whole application. With some styles, lists of combo boxes are menus, too.

#include "foundation/AppStyle.h"
#include "foundation/Palette.h"

#include <QApplication>
#include <QToolTip>

namespace lumqt {

namespace {

// What somebody else puts in its place afterwards stays; what was there before comes back.
class SharedPalette
{
public:
    SharedPalette(QPalette (*read)(), void (*write)(const QPalette &)) : m_read(read), m_write(write) {}

    void renew()
    {
        const bool wants = wantsPalette() && !hasNativeLook();
        if (!m_worn && !wants)
            return;
        const QPalette now = m_read();
        const bool ours = m_worn && now == m_given;
        if (!m_worn)
            m_before = now;
        if (!m_worn || ours) {
            m_write(wants ? themePalette() : m_before);
            m_given = m_read(); // as the style has it
        }
        m_worn = wants;
    }

private:
    QPalette (*m_read)();
    void (*m_write)(const QPalette &);
    QPalette m_before;
    QPalette m_given;
    bool m_worn = false;
};

void renew()
{
    static SharedPalette menus([] { return QApplication::palette("QMenu"); },
                               [](const QPalette &palette) { QApplication::setPalette(palette, "QMenu"); });
    static SharedPalette tips(QToolTip::palette, QToolTip::setPalette);
    menus.renew();
    tips.renew();
}

} // namespace

void sharePalette()
{
    static bool shares = false;
    if (shares)
        return;
    shares = true;
    onThemeChange(ThemeNews::instance(), renew);
    renew();
}

} // namespace lumqt
