// Push buttons with colours per state, a menu on a button, and image buttons.
#include "CBaseWin.h"
#include "CBPImageButton.h"
#include "CBPLabel.h"
#include "CBPMenu.h"
#include "CBPPushBtn.h"
#include "CBPStyle.h"
#include "ENState.h"
#include "Util.h"

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>

namespace {

//! [colors]
// Normal, hover, pressed, disabled: always in this order, always all four.
void makePrimary(CBtnObj &button)
{
    button.setBgColor({QColor(0x2a, 0x80, 0x84), QColor(0x33, 0x92, 0x96), QColor(0x20, 0x66, 0x6a),
                       QColor(0xc4, 0xdc, 0xdd)});
    button.setTextColor({Qt::white, Qt::white, Qt::white, QColor(0x5f, 0x7f, 0x81)});
    button.setRoundRadius({4, 4}); // pixels, x and y
    button.setFrmColor({QColor(0x2a, 0x80, 0x84), QColor(0x33, 0x92, 0x96), QColor(0x20, 0x66, 0x6a),
                        QColor(0xc4, 0xdc, 0xdd)});
}
//! [colors]

//! [push]
CBPPushBtn *saveButton(CBPLabel *log)
{
    constexpr int kSave = 7;
    auto *save = new CBPPushBtn("Save", kSave, CBPPushBtn::ALIGN_CENTER);
    makePrimary(*save);
    save->setFixedSize(120, 36);
    QObject::connect(save, &CBPPushBtn::sigBtnClicked, log,
                     [log](int id) { log->setText(QString("Button %1 was clicked").arg(id)); });
    return save;
}
//! [push]

//! [menu]
CBPPushBtn *menuButton(CBPLabel *log)
{
    auto *more = new CBPPushBtn("Export", nullptr);
    more->setFixedSize(120, 36);
    more->setHasMenu(true); // a click opens the menu
    more->setSpacing(60);   // the triangle stands half of this right of the middle
    more->AppendMenuItem(QString(), "As PDF", 1);
    more->AppendMenuItem(QString(), "As text", 2);
    more->GetMenu()->setTextColor(QColor(0x22, 0x2a, 0x3e));
    more->GetMenu()->setBg({Qt::white, Qt::white, QColor(0xe2, 0xf2, 0xf3), Qt::white});
    more->GetMenu()->SetBorderInfo(1, QColor(0xc4, 0xdc, 0xdd));
    QObject::connect(more, &CBPPushBtn::sigActionTriggered, log, [log](CBPMenuItem *item) {
        log->setText(QString("Item %1 was chosen").arg(item->data().toInt()));
    });
    return more;
}
//! [menu]

//! [image]
CBPImageButton *dateButton(CBPLabel *log)
{
    constexpr int kDate = 9;
    const QVector<QString> files{Util::getResFullPath("../res/icon_log_calendar.png"),
                                 Util::getResFullPath("../res/icon_log_calendar_hover.png"),
                                 Util::getResFullPath("../res/icon_log_calendar_press.png"),
                                 Util::getResFullPath("../res/icon_log_calendar_disable.png")};
    auto *date = new CBPImageButton(files, false, kDate, nullptr);
    date->setAccessibleName("Date"); // there is no text to be read aloud
    date->SetTipsTxt("Choose a day");
    QObject::connect(date, &CBPImageButton::btn_released, log,
                     [log](int id) { log->setText(QString("Button %1 was released").arg(id)); });
    return date;
}
//! [image]

} // namespace

int main(int argc, char *argv[])
{
    //! [style]
    QApplication application(argc, argv);
    CBPStyle::Install();
    //! [style]
    QDir::setCurrent(QCoreApplication::applicationDirPath());

    CBaseWin window;
    window.setCaption("Buttons");
    window.setCentralWidget(new QWidget);
    auto *column = new QVBoxLayout(window.centralWidget());
    auto *row = new QHBoxLayout;
    auto *log = new CBPLabel("Nothing clicked yet", 14);
    auto *off = saveButton(log);
    off->setEnabled(false);
    row->setSpacing(12);
    row->addStretch();
    for (QWidget *button : {static_cast<QWidget *>(saveButton(log)), static_cast<QWidget *>(off),
                            static_cast<QWidget *>(menuButton(log)), static_cast<QWidget *>(dateButton(log))})
        row->addWidget(button);
    row->addStretch();
    column->addStretch();
    column->addLayout(row);
    column->addSpacing(16);
    column->addWidget(log, 0, Qt::AlignHCenter);
    column->addStretch();
    window.resize(600, 260);
    window.show();
    return application.exec();
}
