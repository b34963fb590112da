#include "Bench.h"

#include "CBaseWin.h"

#include <QApplication>
#include <QImage>

#include <memory>

// The frame of a small and of a very large window. A pointer that moves over it repaints the buttons' part
// each time, a new caption or icon the title strip: neither may depend on the window's size. All of it is
// only painted after a resize, beside the whole client area; it grows with the sides, which touch every line
// of the window's memory. Measured through QWidget::render(), which sees no frame that is native: for the
// Linux build.
namespace {

constexpr int kRepaints = 50; // a round
const QSize kSmall(800, 600);
const QSize kLarge(3840, 2160);

struct Framed
{
    explicit Framed(const QSize &size) : target(size, QImage::Format_ARGB32_Premultiplied)
    {
        window.setCaption(QStringLiteral("A window of %1 x %2").arg(size.width()).arg(size.height()));
        window.resize(size);
        window.show();
        QApplication::processEvents();
        whole = QRegion(window.rect()) - window.contentsRect();
        strip = QRect(0, 0, window.width(), window.contentsRect().top());
        buttons =
            QRect(QPoint(window.btnRect(1).left(), 0), QPoint(window.width() - 1, window.titleHight() - 1));
    }

    double paintTime(const QRegion &part)
    {
        const double time = Bench::time([&] {
            for (int i = 0; i < kRepaints; ++i)
                window.render(&target, part.boundingRect().topLeft(), part, QWidget::RenderFlags());
        });
        return time / kRepaints;
    }

    CBaseWin window;
    QImage target;
    QRegion whole;
    QRegion strip;
    QRegion buttons;
};

} // namespace

void benchFrame(Bench &bench)
{
    const auto large = std::make_shared<Framed>(kLarge);
    const auto small = std::make_shared<Framed>(kSmall);
    bench.compare(QStringLiteral("frame: pointer moves"), QStringLiteral("us a repaint"),
                  {{QStringLiteral("3840 x 2160"), [large] { return large->paintTime(large->buttons); }},
                   {QStringLiteral("800 x 600"), [small] { return small->paintTime(small->buttons); }}},
                  {1.3});
    bench.compare(QStringLiteral("frame: title strip"), QStringLiteral("us a repaint"),
                  {{QStringLiteral("3840 x 2160"), [large] { return large->paintTime(large->strip); }},
                   {QStringLiteral("800 x 600"), [small] { return small->paintTime(small->strip); }}},
                  {1.3});
    bench.compare(QStringLiteral("frame: all of it"), QStringLiteral("us a repaint"),
                  {{QStringLiteral("3840 x 2160"), [large] { return large->paintTime(large->whole); }},
                   {QStringLiteral("800 x 600"), [small] { return small->paintTime(small->whole); }}},
                  {0.0});
}
