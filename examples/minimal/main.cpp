#include "CBaseWin.h"
#include "CBPImage.h"
#include "CBPPushBtn.h"
#include "CBPStyle.h"
#include "Util.h"

#include <QApplication>
#include <QVBoxLayout>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    CBPStyle::Install(); // Qt's own widgets get the library's look

    CBaseWin window;
    window.setCaption("Hello");
    window.setCentralWidget(new QWidget);
    auto *button = new CBPPushBtn("Close", 1, CBPPushBtn::ALIGN_CENTER, true);
    QObject::connect(button, &CBPPushBtn::sigBtnClicked, &window, &QWidget::close);
    auto *layout = new QVBoxLayout(window.centralWidget());
    layout->addWidget(button, 0, Qt::AlignCenter);
    window.resize(360, 200);
    window.show();
    if (!application.arguments().contains("--check"))
        return application.exec();

    // Does an installed library find everything it needs? The test of the package asks.
    application.processEvents();
    const bool found = !CBPImage(Util::getResFullPath("../res/title_logo.png")).size().isEmpty();
    std::puts(found ? "ok" : "the library does not find its pictures");
    return found ? 0 : 1;
}
