#pragma once

#include "foundation/FocusMark.h"

#include <QHash>
#include <QObject>
#include <QPoint>
#include <QStyle>

class QWidget;

namespace lumqt {

// A question that no other style answers so, also through the style sheet or the proxy around one.
constexpr auto kIsOurs = QStyle::StyleHint(QStyle::SH_CustomBase + 0x4c51);
constexpr int kOurs = 0x5359;

// What a style has to know of its widgets beyond its options: how the focus came, where the mouse is in a
// view, and which parts a widget gets later.
class StyleWatch : public QObject
{
public:
    explicit StyleWatch(QStyle *style) : QObject(style), m_style(style) {}

    // Whether the style has to know anything of such a widget.
    static bool wants(const QWidget *widget);

    void watch(QWidget *widget);
    bool knows(const QWidget *widget) const;

    // Gives the style to a widget and to those of its parts that have none of their own.
    void dress(QWidget *widget);

    // Whether `widget` is to show a ring; a field shows one whatever brought the focus.
    bool showsFocus(const QWidget *widget) const;
    bool hasFocus(const QWidget *widget) const;

    static void updateFrame(QWidget *widget);

    // Where the mouse is in the viewport of a view; (-1, -1): elsewhere.
    QPoint mouseIn(const QWidget *viewport) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void dressParts(QWidget *widget);
    void followStyle(QWidget *widget);
    void followSheet(QWidget *widget);
    void markFocus(QWidget *widget, QEvent *event);
    void placeRing(QWidget *widget);

    struct Known
    {
        FocusMark mark = FocusMark::None;
        QPoint mouse = QPoint(-1, -1);
        bool ringed = false; // on its outside
    };
    QStyle *m_style;
    QHash<const QObject *, Known> m_known;
};

} // namespace lumqt
