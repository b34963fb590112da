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
    /// The time in the field. \since 1.0
    Q_PROPERTY(QTime time READ GetQTime WRITE SetQTime NOTIFY timeChanged)
    /// Image file of the button, which takes its size. \since 1.0
    Q_PROPERTY(QString iconPath READ iconPath WRITE setIconPath)
    /// Whether the button is there. \since 1.0
    Q_PROPERTY(bool iconVisible READ isIconVisible WRITE SetIconVisual)

public:
    /// A field at 00:00 with a button that shows the image file \a iconPath. \since 1.0
    explicit CEditTimeEditItem(QString iconPath, QWidget *parent = nullptr);

    /// A field at 00:00 with a button without a picture. \since 1.0
    explicit CEditTimeEditItem(QWidget *parent = nullptr);

    ~CEditTimeEditItem() override;

    /// The time in the field; not valid when somebody has deleted the field. \since 1.0
    QTime GetQTime() const;

    /// Sets the time in the field; one that is not valid is ignored. \since 1.0
    void SetQTime(QTime &time);

    /// Shows or hides the button. \since 1.0
    void SetIconVisual(bool bShow);

    /// Whether the button is there, seen or not. \since 1.0
    bool isIconVisible() const;

    /// The image file of the button. \since 1.0
    QString iconPath() const;

    /// Sets the image file of the button, which takes its size. \since 1.0
    void setIconPath(const QString &path);

Q_SIGNALS:
    /// The button was pressed. The item does not hide itself; what is connected may delete it. \since 1.0
    void sigHideItem(CEditTimeEditItem *pItem);

    /// The time is another one, whoever changed it. It may be in the middle of a key press: a slot uses
    /// deleteLater() for the item. \since 1.0
    void timeChanged(const QTime &time);

private Q_SLOTS:
    void OnClicked(int btnId);
    void tellTime();

private:
    friend class CEditTimeEdit;

    void Layout();

    QString m_strIconPath;
    QTime m_timeTold;
    QPointer<QTimeEdit> m_pTimeEdit;
    QPointer<CBPImageButton> m_pDelBtn;
};
