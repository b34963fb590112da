#include "Page.h"
#include "PageRegistry.h"
#include "Theme.h"

#include "CBPAnimationObj.h"
#include "CBPEllipsisGifLabel.h"
#include "CBPGifLable.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimerEvent>

#include <memory>

namespace {

constexpr int kColumnWidth = 264;
constexpr int kBars = 4;
constexpr int kBarFrames = 12;
constexpr int kBarsSize = 32;

// What a widget does with an animation: it shows each picture, and stops the clock while it is hidden.
class Spinner : public QLabel
{
public:
    Spinner() : m_animation(theme::spinnerFrames())
    {
        connect(&m_animation, &CBPAnimationObj::frameChanged, this,
                [this] { setPixmap(m_animation.currentPixmap()); });
        m_animation.setDelayInterval(0);
        theme::follow(this, [this] { setPixmap(theme::picture("loading/loading00.png")); });
        setFixedSize(sizeHint());
    }

protected:
    void showEvent(QShowEvent *) override { m_animation.start(); }
    void hideEvent(QHideEvent *) override { m_animation.stop(); }

private:
    CBPAnimationObj m_animation;
};

// One picture of four bars that swing.
void drawBars(const QString &file, int number, int ratio)
{
    QImage image(QSize(kBarsSize, kBarsSize) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(ratio, ratio);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(31, 113, 191)); // pictures of its own are the same in each theme
    for (int i = 0; i < kBars; ++i) {
        const int phase = (number + 3 * i) % kBarFrames;
        const int height = 8 + 4 * qMin(phase, kBarFrames - phase);
        painter.drawRoundedRect(QRectF(8 * i + 1, (kBarsSize - height) / 2.0, 6, height), 2, 2);
    }
    painter.end();
    image.save(file);
}

// A folder as CBPGifLable plays it: it shows one picture more than it is told of.
QString barsFolder()
{
    static QTemporaryDir dir;
    static bool drawn = false;
    for (int i = 0; i < kBarFrames && !drawn; ++i) {
        drawBars(dir.filePath(QString("%1.png").arg(i)), i, 1);
        drawBars(dir.filePath(QString("%1@2x.png").arg(i)), i, 2);
    }
    drawn = true;
    return dir.path();
}

void tick(QObject *object, int times)
{
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(object);
    for (int i = 0; i < times && !timers.isEmpty(); ++i) {
        QTimerEvent event(timers.first().timerId);
        QCoreApplication::sendEvent(object, &event);
    }
}

CBPGifLable *bars()
{
    auto *label = new CBPGifLable(barsFolder(), kBarFrames - 1);
    label->StartGif();
    return label;
}

QLabel *barsAt(int frame)
{
    const std::unique_ptr<CBPGifLable> playing(bars());
    playing->setAttribute(Qt::WA_DontShowOnScreen);
    playing->show(); // it rests while it cannot be seen
    tick(playing.get(), frame + 1);
    auto *still = new QLabel;
    still->setPixmap(playing->pixmap(Qt::ReturnByValue));
    return still;
}

QWidget *busyWords(const QString &text)
{
    auto *box = new QWidget;
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto *dots = new CBPEllipsisGifLabel(3);
    QLabel *words = theme::label(text, theme::Normal, 14, theme::kText);
    dots->setFont(words->font());
    theme::setTone(dots, theme::kText);
    layout->addWidget(words);
    layout->addWidget(dots);
    dots->ShowGifLable();
    return box;
}

// The row of dots as it looks some seconds after it was shown.
class StillDots : public CBPEllipsisGifLabel
{
public:
    explicit StillDots(int dots)
    {
        setFont(theme::font(theme::Semibold, 28));
        setText(QString(dots, QLatin1Char('.')));
        setMinimumWidth(6 * theme::kUnit);
    }
};

void addLiveSamples(Page *page)
{
    page->addSection("In motion", "All three of them rest while they cannot be seen.")
        ->addColumns(kColumnWidth, {{"CBPAnimationObj: 24 files, 80 ms each", new Spinner},
                                    {"CBPGifLable: a folder, ten a second", bars()},
                                    {"CBPEllipsisGifLabel: a dot a second", busyWords("Searching")}});
}

void addFrames(Page *page)
{
    Section *section =
        page->addSection("The spinner's pictures", "These are the files of res/loading, in their order.");
    const QStringList files = theme::spinnerFrames();
    CBPAnimationObj animation(files);
    animation.setDelayInterval(0);
    QMetaObject::invokeMethod(&animation, "onTimeout"); // none is to be had before the first one is shown
    QVector<Sample> samples;
    for (int i = 0; i < files.size(); ++i) {
        auto *label = new QLabel;
        // Below `res`, of a path that is written as the system does.
        const QString file = QDir::fromNativeSeparators(files[i]).section('/', -2);
        theme::follow(label, [label, file] { label->setPixmap(theme::picture(file)); });
        samples.append({QString::number(i), label});
    }
    section->addColumns(8 * theme::kUnit, samples.mid(0, samples.size() / 2));
    section->addColumns(8 * theme::kUnit, samples.mid(samples.size() / 2));
}

void addSteps(Page *page)
{
    Section *section = page->addSection("Step by step", "The class plays one picture more than it is told, "
                                                        "on purpose: a count of 11 plays 12. The row of dots "
                                                        "begins anew when it is full.");
    QVector<Sample> samples;
    for (int i = 0; i < kBarFrames; ++i)
        samples.append({QString("%1.png").arg(i), barsAt(i)});
    section->addColumns(8 * theme::kUnit, samples);
    section->addColumns(8 * theme::kUnit, {{"1 s", new StillDots(1)},
                                           {"2 s", new StillDots(2)},
                                           {"3 s", new StillDots(3)},
                                           {"4 s", new StillDots(0)}});
}

Page *makePage()
{
    auto *page = new Page("Frame animation",
                          "Pictures and dots, step by step on a timer: for work whose end is not known.");
    addLiveSamples(page);
    addFrames(page);
    addSteps(page);
    return page;
}

void registerThis()
{
    registerPage({"animation", "Frame animation", PageGroup::Displays, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
