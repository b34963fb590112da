#include "Bench.h"

#include "CBPImageButton.h"
#include "Util.h"

#include <QApplication>
#include <QGridLayout>
#include <QImage>
#include <QPainter>

#include <memory>

// A window of 400 image buttons beside one of 400 widgets that only draw a picture they hold.
namespace {

constexpr int kColumns = 20;
constexpr int kButtons = 400;
constexpr int kRepaints = 5; // a round

class BarePicture : public QWidget
{
public:
    BarePicture(const QPixmap &pixmap, QWidget *parent) : QWidget(parent), m_pixmap(pixmap)
    {
        setFixedSize(pixmap.size());
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.drawPixmap(0, 0, m_pixmap);
    }

private:
    const QPixmap m_pixmap;
};

using Make = std::function<QWidget *(QWidget *)>;

struct Grid
{
    explicit Grid(const Make &make)
    {
        auto *layout = new QGridLayout(&window);
        for (int i = 0; i < kButtons; ++i)
            layout->addWidget(make(&window), i / kColumns, i % kColumns);
        window.show();
        QApplication::processEvents();
        target = QImage(window.size(), QImage::Format_ARGB32_Premultiplied);
    }

    double repaintTime()
    {
        // Qt takes longer to find the colours of a window that is not the active one.
        window.activateWindow();
        QApplication::processEvents();
        const double time = Bench::time([this] {
            for (int i = 0; i < kRepaints; ++i)
                window.render(&target, QPoint(), QRegion(), QWidget::DrawChildren);
        });
        return time / (kButtons * kRepaints);
    }

    QWidget window;
    QImage target;
};

void compareFiles(Bench &bench, const QString &title, const QVector<QString> &images)
{
    const QPixmap pixmap(images.first());
    const auto ours = std::make_shared<Grid>([&](QWidget *parent) {
        auto *button = new CBPImageButton(images, false, 1, parent);
        button->SetBorder(0, false);
        return button;
    });
    const auto bare =
        std::make_shared<Grid>([&](QWidget *parent) { return new BarePicture(pixmap, parent); });
    bench.compare(title, QStringLiteral("us a button"),
                  {{QStringLiteral("CBPImageButton"), [ours] { return ours->repaintTime(); }},
                   {QStringLiteral("bare pixmap"), [bare] { return bare->repaintTime(); }}},
                  {1.05});
}

} // namespace

void benchImageButtons(Bench &bench)
{
    QVector<QString> png;
    QVector<QString> svg;
    for (const char *state : {"normal", "hover", "press", "disable"}) {
        const QString name = QLatin1String(state);
        png += Util::getResFullPath(QStringLiteral("../res/minimize_%1.png").arg(name));
        svg += Util::getLumResFullPath(QStringLiteral("ico_more_%1.svg").arg(name));
    }
    compareFiles(bench, QStringLiteral("image button: repaint, PNG"), png);
    compareFiles(bench, QStringLiteral("image button: repaint, SVG"), svg);
}
