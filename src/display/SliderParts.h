#pragma once

#include <QRect>
#include <QSlider>
#include <QStringList>
#include <QVector>

#include <functional>

class QLabel;

// What the two sliders with a row of labels have in common: a QSlider and a QLabel below each other, which
// the slider's owner paints. GUI thread only.
namespace lumqt {

enum class FocusMark : unsigned char;

// A slider that tells screen readers its parent's name, or else the labels at its ends, and as its value what
// `spokenValue` says (the number while that is empty). The ring of the keyboard focus lies around its parent:
// the ticks and the labels reach the edges.
class SpokenSlider : public QSlider
{
    Q_OBJECT

public:
    explicit SpokenSlider(std::function<QString()> spokenValue);
    ~SpokenSlider() override;

    void setLabels(const QStringList &labels) { m_labels = labels; }

    // What the left button does, one of the two: the style's own handle and groove are elsewhere than the
    // painted ones. `valueAt` tells the value at a place.
    using ValueAt = int (*)(const QSlider &slider, int x);
    using HandleOf = QRect (*)(const QSlider &slider);

    // The handle goes to the pointer as soon as the button is down, and follows.
    void followPointer(ValueAt valueAt) { m_valueAt = valueAt; }

    // The handle, which is at `handleOf`, can be dragged; beside it the button goes a page towards the
    // pointer, and while it is held down further ones as far as the pointer.
    void stepToPointer(ValueAt valueAt, HandleOf handleOf)
    {
        m_valueAt = valueAt;
        m_handleOf = handleOf;
    }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    class Accessible;

    void showRing();
    void stepTowards(int x);

    std::function<QString()> m_spokenValue;
    ValueAt m_valueAt = nullptr;
    HandleOf m_handleOf = nullptr;
    int m_grabbedAt = 0;  // pixels from the middle of the handle
    int m_pageTarget = 0; // the value under the pointer that paging goes to
    QStringList m_labels;
    FocusMark m_focusMark{};
};

struct SliderParts
{
    SpokenSlider *slider;
    QLabel *labelRow;
};

// Makes both and puts them into the owner's layout; the owner is their event filter.
SliderParts makeSliderParts(QWidget *owner, std::function<QString()> spokenValue);

constexpr int kSliderHandle = 14; // across

// x of the tick `index` of `last` + 1, the outer ones moved `inset` pixels inwards.
int sliderTick(const QRect &rect, int index, int last, int inset);

void drawSliderTrack(QPainter &painter, const QRect &rect, int last, int inset);
// Under the pointer, or held, it has a halo, as far as the slider reaches.
void drawSliderHandle(QPainter &painter, const QSlider &slider, const QPoint &topLeft, const QColor &color);

// Of makeSliderParts(): the labels that the row has to have room for.
void setSliderLabels(QSlider &slider, QLabel &row, const QStringList &labels);

void drawSliderLabels(QLabel &row, const QStringList &labels);

// Index of the leftmost label under `position`, -1 where there is none.
int sliderLabelAt(const QLabel &row, const QStringList &labels, const QPoint &position);

} // namespace lumqt
