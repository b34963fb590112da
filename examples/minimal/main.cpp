#include "CBaseWin.h"
#include "CBPPushBtn.h"
#include "CBPStyle.h"
#include "Util.h"

#include <QApplication>
#include <QDir>
#include <QVBoxLayout>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath()); // res/ lies beside this folder
    CBPStyle::Install();                                      // Qt's own widgets get the library's look

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
    const bool found = QFile::exists(Util::getResFullPath("../res/title_logo.png"));
    std::puts(found ? "ok" : "res/ is not where the library looks for it");
    return found ? 0 : 1;
}
