#include "Dialogs.h"

#include "Bench.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

// Making, showing, painting, closing and deleting a dialog with the same children in it.
namespace {

constexpr int kOpenings = 10; // a round
constexpr int kRows = 8;

QWidget *makeContent()
{
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    for (int i = 0; i < kRows; ++i) {
        layout->addWidget(new QLabel(QStringLiteral("Row %1").arg(i)));
        layout->addWidget(new QPushButton(QStringLiteral("Button %1").arg(i)));
    }
    return content;
}

template <class Dialog> double openingTime()
{
    const double time = Bench::time([] {
        for (int i = 0; i < kOpenings; ++i) {
            Dialog dialog;
            dialog.show();
            QApplication::processEvents();
            dialog.close();
        }
    });
    return time / kOpenings;
}

} // namespace

FramedDialog::FramedDialog() : CBPWinFrm(nullptr)
{
    Init();
    SetWindowTitle(QStringLiteral("Title"), false);
    ShowTitleBtn(8, true);
    AppendContent(makeContent(), true, false, 0);
}

PlainDialog::PlainDialog()
{
    setWindowTitle(QStringLiteral("Title"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(makeContent());
}

void benchDialogs(Bench &bench)
{
    bench.compare(QStringLiteral("dialog: open and close"), QStringLiteral("us a dialog"),
                  {{QStringLiteral("CBPWinFrm"), openingTime<FramedDialog>},
                   {QStringLiteral("QDialog"), openingTime<PlainDialog>}},
                  {1.25}); // plain Qt with the same parts: 1.12
}
