#pragma once

#include "CBPWaitBtn.h"

/// A waiting button that opens and closes something below it, with an arrow at its right end that says which
/// of the two it will do.
///
/// It is 44 pixels high and has no frame; a text that does not fit beside the arrow ends in an ellipsis. A
/// click turns it over; what it opens is up to whoever listens. setSelected() paints it as pressed. While
/// somebody waits in it the arrow is away. GUI thread only. \since 1.0
class LUMQT_EXPORT CExpandBtn : public CBPWaitBtn
{
    Q_OBJECT
    /// Whether what it opens is open; false as long as expandable is. \since 1.0
    Q_PROPERTY(bool expanded READ isExpand WRITE setExpand NOTIFY sigExpandChanged)
    /// Whether there is something to open, and an arrow to say so. \since 1.0
    Q_PROPERTY(bool expandable READ isExpandable WRITE setExpandable)

public:
    /// A button that is not expanded; see CBPWaitBtn about the arguments.
    /// \since 1.0
    CExpandBtn(const QStringList &frames, const QString &text, const QString &waitingText,
               QWidget *parent = nullptr, bool autoResize = false);

    /// The same without texts and frames.
    /// \since 1.0
    explicit CExpandBtn(QWidget *parent = nullptr);
    ~CExpandBtn() override;

    /// Expands or collapses it. A button that is not expandable stays collapsed.
    /// \since 1.0
    void setExpand(bool expand);

    /// Whether there is something to expand; true at first. With false it collapses and shows no arrow.
    /// \since 1.0
    void setExpandable(bool expandable);

    /// Whether there is something to expand.
    /// \since 1.0
    bool isExpandable() const { return m_expandable; }

    /// Whether it is expanded; false at first.
    /// \since 1.0
    bool isExpand() const;

    /// With room for the text and, at both ends, the arrow.
    /// \since 1.0
    QSize sizeHint() const override;

public Q_SLOTS:
    /// Expands a collapsed button and the other way round, as a click does.
    /// \since 1.0
    void onExpand();

Q_SIGNALS:
    /// The button is expanded now, or collapsed.
    /// \since 1.0
    void sigExpandChanged(bool expanded);

protected:
    void drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index) override;

private:
    class Accessible;

    bool m_expanded = false;
    bool m_expandable = true;
};
