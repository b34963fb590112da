// Themes: the user's choice, the colours of a painting of one's own, and a theme file.
#include "CBaseWin.h"
#include "CBPCheckBox.h"
#include "CBPDropdownBtn.h"
#include "CBPMenuItem.h"
#include "CBPStyle.h"
#include "CBPTheme.h"
#include "Util.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

namespace {

//! [paint]
// Asks for the colours whenever it paints, and so needs no signal.
class Meter : public QWidget
{
public:
    Meter() { setFixedHeight(24); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), CBPTheme::color(CBPTheme::Purpose::Frame));
        painter.fillRect(rect().adjusted(1, 1, -1, -1), CBPTheme::color(CBPTheme::Purpose::Field));
        const QRect done(1, 1, (width() - 2) * 2 / 3, height() - 2);
        painter.fillRect(done, CBPTheme::color(CBPTheme::Purpose::Accent));
        painter.setPen(CBPTheme::color(CBPTheme::Purpose::OnAccent));
        painter.drawText(done.adjusted(8, 0, 0, 0), Qt::AlignVCenter, "Two thirds");
    }
};
//! [paint]

//! [choose]
CBPDropdownBtn *chooser()
{
    auto *button = new CBPDropdownBtn("Theme", 1);
    const QStringList names = CBPTheme::names();
    for (int i = 0; i < names.size(); ++i)
        button->AppendMenuItem(QString(), names[i], i);
    button->AppendMenuItem(QString(), "as the system", names.size());
    QObject::connect(button, &CBPDropdownBtn::sigActionTriggered, button, [names](CBPMenuItem *item) {
        const int chosen = item->data().toInt();
        if (chosen < names.size())
            CBPTheme::apply(names[chosen]);
        else
            CBPTheme::followSystem(true);
    });
    return button;
}
//! [choose]

//! [keep]
// A palette keeps its colour, so it is renewed.
void markAsGood(QLineEdit *edit)
{
    const auto renew = [edit] {
        QPalette palette = edit->palette();
        palette.setColor(QPalette::Text, CBPTheme::color(CBPTheme::Purpose::Success));
        edit->setPalette(palette);
    };
    renew();
    QObject::connect(CBPTheme::instance(), &CBPTheme::changed, edit, renew);
}
//! [keep]

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    Util::InstallCatalogue();

    //! [start]
    CBPStyle::Install();                                        // plain Qt widgets look like the library's
    CBPTheme::givePalette(true);                                // and go with the theme
    CBPTheme::load(Util::getResFullPath("../res/evening.ini")); // one more name, if the file is there
    CBPTheme::apply("dark");
    //! [start]

    CBaseWin window;
    window.setCaption("Themes");
    window.setCentralWidget(new QWidget);
    auto *column = new QVBoxLayout(window.centralWidget());
    column->setContentsMargins(32, 24, 32, 24);
    column->setSpacing(16);
    column->addWidget(chooser(), 0, Qt::AlignLeft);
    column->addWidget(new CBPCheckBox("Keep me informed", nullptr));
    auto *edit = new QLineEdit("A plain QLineEdit, all well");
    markAsGood(edit);
    column->addWidget(edit);
    column->addWidget(new Meter);
    column->addStretch();
    window.resize(480, 300);
    window.show();
    return application.exec();
}
