#pragma once

#include "LumQtGlobal.h"

#include <QLabel>

#include <type_traits>

/// A label for "working ...": a row of dots that gains one every second and begins anew when it is full.
///
/// It asks for the room of its full row, of 24 dots at most, so that nothing beside it moves. While it is
/// hidden no timer runs. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPEllipsisGifLabel : public QLabel
{
    Q_OBJECT
    /// How many dots the full row has, 3 at first; below 1 the text stays empty. \since 1.0
    Q_PROPERTY(int maximumDots READ maximumDots WRITE setMaximumDots RESET resetMaximumDots)
    /// Whether it is animated; true has an effect once, and false hides the label. \since 1.0
    Q_PROPERTY(bool running READ isRunning WRITE setRunning NOTIFY runningChanged DESIGNABLE false)

public:
    /// A row of up to three dots, without a parent. \since 1.0
    CBPEllipsisGifLabel();

    /// A row of up to three dots in \a parent, a pointer to any widget: null and 0 as such are a number of
    /// dots. \since 1.0
    template <class Widget, std::enable_if_t<std::is_convertible<Widget *, QWidget *>::value, int> = 0>
    explicit CBPEllipsisGifLabel(Widget *parent) : CBPEllipsisGifLabel()
    {
        setParent(parent);
    }

    /// A row of up to \a maxDots dots; below 1 the text stays empty. \since 1.0
    explicit CBPEllipsisGifLabel(int maxDots, QWidget *parent = nullptr);

    ~CBPEllipsisGifLabel() override;

    /// Shows the label and starts its animation, once in its life: returns false, and does nothing, at any
    /// further call, also after HideGifLable(). The text is replaced with the first dot, one second later.
    /// \since 1.0
    bool ShowGifLable();

    /// Ends the animation and hides the label. \since 1.0
    void HideGifLable();

    /// How many dots the full row has. \since 1.0
    int maximumDots() const;

    /// Sets the number of dots of the full row; below 1 the text stays empty. \since 1.0
    void setMaximumDots(int dots);

    /// Makes the full row three dots. \since 1.0
    void resetMaximumDots();

    /// Whether ShowGifLable() has started the animation and HideGifLable() has not ended it; also while it
    /// rests hidden. \since 1.0
    bool isRunning() const;

    /// ShowGifLable() or HideGifLable(), where that is a change. \since 1.0
    void setRunning(bool running);

    /// Room for the full row. \since 1.0
    QSize sizeHint() const override;
    /// The same: neighbours stand still in a row in want of room, too. \since 1.0
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The animation has begun, or has ended. \since 1.0
    void runningChanged(bool running);

protected:
    /// Shows as many dots as there are now. \since 1.0
    void SetText();

    void timerEvent(QTimerEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    bool showsDots() const;
    QSize rowSize() const;
    bool startDots();
    void pauseDots();

    int m_timerId = 0; // of the last timer, also when that is gone
    bool m_ticking = false;
    bool m_playing = false; // from ShowGifLable() to HideGifLable()
    int m_dots = 0;
    int m_maxDots;
};
