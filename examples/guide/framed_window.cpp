// A framed window that is not modal, beside a main window: the application paints its body.
#include "CBaseWin.h"
#include "CBPLabel.h"
#include "CBPPushBtn.h"
#include "CBPWinWidget.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QVBoxLayout>

namespace {

//! [class]
class DetailsWindow : public CBPWinWidget
{
public:
    explicit DetailsWindow(QWidget *parent) : CBPWinWidget(parent)
    {
        SetShadowBorder(1); // room for the line around it; counts from Init() on
        Init();             // once, before title and content
        EnabledTitleRoundRc(false);
        SetMainBoxBorder(24, 20, 24, 20);
        SetWindowTitle("Details");
        ShowTitleBtn(2 | 8 | 512, true); // minimise, close, title
        AppendContent(new CBPLabel("Invoices", 16), false, false, 8);
        AppendContent(new CBPLabel("38 files, 12 MB", 14), false, false, 0);
        resize(360, 164);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this); // the base paints nothing
        painter.fillRect(rect(), QColor(0x22, 0x2a, 0x3e));
        painter.fillRect(rect().adjusted(1, 1, -1, -1), Qt::white);
    }
};
//! [class]

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    CBaseWin window;
    window.setCaption("Folders");
    window.setCentralWidget(new QWidget);
    auto *column = new QVBoxLayout(window.centralWidget());
    auto *button = new CBPPushBtn("Details", nullptr);
    column->addWidget(button, 0, Qt::AlignCenter);
    //! [show]
    QObject::connect(button, &CBPPushBtn::sigBtnClicked, &window, [&window] {
        auto *details = new DetailsWindow(&window);
        details->setAttribute(Qt::WA_DeleteOnClose);
        details->show(); // returns at once; both windows can be used
    });
    //! [show]
    window.resize(480, 300);
    window.show();
    return application.exec();
}
