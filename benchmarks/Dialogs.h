#pragma once

#include "CBPWinFrm.h"

#include <QDialog>

// A framed dialog and a plain one with the same content.
class FramedDialog : public CBPWinFrm
{
public:
    FramedDialog();
};

class PlainDialog : public QDialog
{
public:
    PlainDialog();
};
