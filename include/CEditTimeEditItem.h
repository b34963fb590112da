#pragma once

#include "LumQtGlobal.h"

#include <QPointer>
#include <QString>
#include <QTime>
#include <QWidget>

class CBPImageButton;
class QTimeEdit;

/// A time of day with a button that asks for its removal; what CEditTimeEdit is made of.
///
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CEditTimeEditItem : public QWidget
{
    Q_OBJECT

public:
    /// A field at 00:00 with a button that shows the image file \a iconPath. \since 1.0
    explicit CEditTimeEditItem(QString iconPath, QWidget *parent = nullptr);
    ~CEditTimeEditItem() override;

    /// The time in the field; not valid when somebody has deleted the field. \since 1.0
    QTime GetQTime() const;

    /// Sets the time in the field; one that is not valid is ignored. \since 1.0
    void SetQTime(QTime &time);

    /// Shows or hides the button. \since 1.0
    void SetIconVisual(bool bShow);

Q_SIGNALS:
    /// The button was pressed. The item does not hide itself; what is connected may delete it. \since 1.0
    void sigHideItem(CEditTimeEditItem *pItem);

private Q_SLOTS:
    void OnClicked(int btnId);

private:
    friend class CEditTimeEdit;

    void Layout();

    QString m_strIconPath;
    QPointer<QTimeEdit> m_pTimeEdit;
    QPointer<CBPImageButton> m_pDelBtn;
};
