// Questions, a form of the library and a dialog of one's own.
#include "CBaseWin.h"
#include "CBPLabel.h"
#include "CBPLineEdit.h"
#include "CBPPopWnd.h"
#include "CBPPushBtn.h"
#include "CMsgBox.h"
#include "Util.h"

#include <QApplication>
#include <QDir>
#include <QPointer>
#include <QVBoxLayout>

namespace {

//! [flags]
enum Button { Ok = 0x4, Cancel = 0x100, Yes = 0x800, No = 0x1000 };
enum Type { Information, Question, Warning, Error };
//! [flags]

//! [question]
bool mayDelete(QWidget *parent, const QString &folder)
{
    const QPointer<CMsgBox> box(new CMsgBox(parent));
    const QString text = QString("The folder \"%1\" holds 38 files.").arg(folder.toHtmlEscaped());
    const int answer = box->message(Question, text, "Delete the folder?", Yes | No);
    delete box; // null when the parent took it along
    return answer == Yes;
}
//! [question]

//! [form]
QString askForName(QWidget *parent)
{
    const QPointer<CMsgBox> box(new CMsgBox(parent));
    box->showCreateDirBox(Information, "Name of the new folder:", Ok | Cancel, "New folder");
    const QString name = box && box->GetResult() == Ok ? box->GetUser() : QString();
    delete box;
    return name;
}
//! [form]

//! [dialog]
class ServerDialog : public CBPPopWnd
{
public:
    explicit ServerDialog(QWidget *parent) : CBPPopWnd(parent)
    {
        Init(true); // with a bottom area for the buttons
        SetMainBoxBorder(24, 20, 24, 8);
        SetStatusBoxBorder(24, 12, 24, 16);
        SetWindowTitle("Server");
        ShowTitleBtn(8 | 512, true); // close, title
        m_address->setMinimumHeight(32);
        m_hint->SetTextColor(QColor(0xb4, 0x3a, 0x3a));
        AppendContent(new CBPLabel("IPv4 address of the server", 14), false, false, 8);
        AppendContent(m_address, false, false, 8);
        AppendContent(m_hint, false, false, 0);
        AppendBtn(Ok | Cancel);
        setFixedSize(440, 264);
    }

    QString address() const { return m_address->text(); }

protected:
    bool proceedBtnClicked(int flag) override
    {
        if (flag != Ok || Util::IsIPAddress(m_address->text()))
            return true;
        m_hint->setText("An address has four numbers, such as 192.168.0.1");
        m_address->setFocus();
        return false; // the dialog stays open, its result as it was
    }

private:
    CBPLineEdit *m_address = new CBPLineEdit;
    CBPLabel *m_hint = new CBPLabel(QString(), 12);
};
//! [dialog]

//! [run]
QString askForServer(QWidget *parent)
{
    const QPointer<ServerDialog> dialog(new ServerDialog(parent));
    dialog->Run();
    const QString address = dialog && dialog->GetResult() == Ok ? dialog->address() : QString();
    delete dialog;
    return address;
}
//! [run]

CBPPushBtn *button(const QString &text, QBoxLayout *column)
{
    auto *result = new CBPPushBtn(text, nullptr);
    result->setFixedSize(168, 36);
    column->addWidget(result, 0, Qt::AlignHCenter);
    return result;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    Util::InstallCatalogue(); // has the titles of message boxes

    CBaseWin window;
    window.setCaption("Dialogs");
    window.setCentralWidget(new QWidget);
    auto *column = new QVBoxLayout(window.centralWidget());
    column->addStretch();
    auto *answer = new CBPLabel("No answer yet", 14);
    QObject::connect(button("Ask a question", column), &CBPPushBtn::sigBtnClicked, answer, [&window, answer] {
        answer->setText(mayDelete(&window, "Invoices") ? "Deleted" : "Kept");
    });
    QObject::connect(button("Ask for a name", column), &CBPPushBtn::sigBtnClicked, answer,
                     [&window, answer] { answer->setText("Name: " + askForName(&window)); });
    QObject::connect(button("Run a dialog", column), &CBPPushBtn::sigBtnClicked, answer,
                     [&window, answer] { answer->setText("Server: " + askForServer(&window)); });
    column->addSpacing(12);
    column->addWidget(answer, 0, Qt::AlignHCenter);
    column->addStretch();
    window.resize(480, 340);
    window.show();
    return application.exec();
}
