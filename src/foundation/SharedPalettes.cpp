// The palettes of menus and tips: windows of their own, which lie in none of the library's, and have one
// palette for a whole application. With some styles, lists of combo boxes are menus, too.

#include "foundation/Palette.h"

#include <QApplication>
#include <QToolTip>

namespace lumqt {

namespace {

// What somebody else puts in its place stays.
class SharedPalette
{
public:
    SharedPalette(const char *widget, QPalette (*read)(), void (*write)(const QPalette &))
        : m_widget(widget), m_read(read), m_write(write)
    {
    }

    void renew()
    {
        if (!m_worn && !wantsPalette())
            return;
        const QPalette now = m_read();
        if (m_worn ? now != m_given : isOwn(now))
            return;
        if (!m_worn)
            m_before = now;
        m_worn = wantsPalette();
        m_write(m_worn ? themePalette() : m_before);
        m_given = m_read(); // as the style has it
    }

private:
    // Whether it has been set before, where that can be told.
    bool isOwn(const QPalette &now) const
    {
        const QPalette usual = QApplication::palette(m_widget);
        const auto differs = [&](QPalette::ColorRole role) {
            return now.color(QPalette::Inactive, role) != usual.color(QPalette::Inactive, role);
        };
        return differs(QPalette::ToolTipBase) || differs(QPalette::ToolTipText);
    }

    const char *m_widget;
    QPalette (*m_read)();
    void (*m_write)(const QPalette &);
    QPalette m_before;
    QPalette m_given;
    bool m_worn = false;
};

void renew()
{
    static SharedPalette menus(
        "QMenu", [] { return QApplication::palette("QMenu"); },
        [](const QPalette &palette) { QApplication::setPalette(palette, "QMenu"); });
    static SharedPalette tips("QTipLabel", QToolTip::palette, QToolTip::setPalette);
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
