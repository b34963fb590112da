// A main window that draws its own frame: a note that asks before it is thrown away.
#include "CBaseWin.h"
#include "CBPTextEdit.h"
#include "CMsgBox.h"

#include <QApplication>
#include <QDir>
#include <QPointer>

namespace {

//! [window]
class NoteWindow : public CBaseWin
{
public:
    NoteWindow();

protected:
    void onExit() override;
    bool titleBtnClicked(int id) override;

private:
    bool mayLose();

    CBPTextEdit *m_edit = new CBPTextEdit;
};

NoteWindow::NoteWindow()
{
    setCaption("Note");     // in the title strip
    setWindowTitle("Note"); // in the task bar
    m_edit->setMaxLength(2000);
    m_edit->setTextMargin(16, 12, 16, 12); // pixels
    m_edit->setFrameShape(QFrame::NoFrame);
    setCentralWidget(m_edit); // the window owns it now
    resize(560, 360);
}
//! [window]

//! [exit]
void NoteWindow::onExit()
{
    if (!m_edit->document()->isEmpty() && !mayLose())
        return;         // still visible: the window stays open
    CBaseWin::onExit(); // hides it, sends sigQuit() and ends the application
}
//! [exit]

//! [titleButton]
bool NoteWindow::titleBtnClicked(int id)
{
    if (id == 1) // the list button has no action of its own
        m_edit->clear();
    return false; // minimise, maximise and close go on to act
}
//! [titleButton]

bool NoteWindow::mayLose()
{
    const QPointer<CMsgBox> box(new CMsgBox(this));
    const int answer =
        box->message(1, "The note is not saved anywhere.", "Close it?", 0x800 | 0x1000, "Note");
    delete box;
    return answer == 0x800;
}

} // namespace

//! [main]
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath()); // res/ lies beside this folder
    NoteWindow window;
    window.show();
    return application.exec();
}
//! [main]
