#pragma once

#include "CMsgBox.h"

#include "CBPBox.h"
#include "CBPImageButton.h"
#include "CBPLabel.h"
#include "CBPLineEdit.h"
#include "CBPLinkerButton.h"
#include "CBPPushBtn.h"
#include "PopUpProbe.h"

#include <QCheckBox>
#include <QtTest>

// What the tests of message boxes share.

// A message box that is looked at and ended while one of its calls runs it.
class MsgBox : public CMsgBox
{
public:
    explicit MsgBox(QWidget *parent = nullptr) : CMsgBox(parent) {}

    using CMsgBox::statusBox;

    // Does `look` while the box runs, and then ends it without a button, if it is still there.
    void whileRunning(std::function<void()> look)
    {
        later(this, [self = QPointer<MsgBox>(this), look] {
            look();
            if (self && self->isVisible())
                self->UnRun();
        });
    }

    QLabel *label(const QString &text)
    {
        const auto all = findChildren<QLabel *>();
        for (QLabel *candidate : all) {
            if (candidate->text() == text)
                return candidate;
        }
        return nullptr;
    }
    QList<CBPLineEdit *> edits() const { return findChildren<CBPLineEdit *>(); }
};
