// One source for the Qt 5 and the Qt 6 build: what a class that derives from the library's overrides in both.
#include "CBaseWin.h"
#include "CBPLabel.h"
#include "CBPPushBtn.h"
#include "LumQtCompat.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QVBoxLayout>

namespace {

//! [enter]
// Tells from which side the mouse came in.
class Door : public CBPPushBtn
{
public:
    explicit Door(CBPLabel *log) : CBPPushBtn("Come in", nullptr), m_log(log) { setFixedSize(160, 40); }

protected:
    void enterEvent(lumqt::EnterEvent *event) override
    {
        CBPPushBtn::enterEvent(event); // the hover colours
        const bool left = mapFromGlobal(QCursor::pos()).x() < width() / 2;
        m_log->setText(left ? "From the left" : "From the right");
    }

private:
    CBPLabel *m_log;
};
//! [enter]

//! [native]
class Window : public CBaseWin
{
public:
    int messages() const { return m_messages; }

protected:
    bool nativeEvent(const QByteArray &kind, void *message, lumqt::NativeResult *result) override
    {
        ++m_messages;
        return CBaseWin::nativeEvent(kind, message, result); // moves and resizes the window on Windows
    }

private:
    int m_messages = 0;
};
//! [native]

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    Window window;
    window.setCaption(QString("Running with Qt %1").arg(qVersion()));
    window.setCentralWidget(new QWidget);
    auto *column = new QVBoxLayout(window.centralWidget());
    column->setSpacing(16);
    auto *log = new CBPLabel("Nobody yet", 14);
    auto *door = new Door(log);
    column->addStretch();
    column->addWidget(door, 0, Qt::AlignHCenter);
    column->addWidget(log, 0, Qt::AlignHCenter);
    column->addStretch();
    QObject::connect(door, &CBPPushBtn::sigBtnClicked, log, [log, &window] {
        log->setText(QString("%1 messages of the system").arg(window.messages()));
    });
    window.resize(480, 300);
    window.show();
    return application.exec();
}
