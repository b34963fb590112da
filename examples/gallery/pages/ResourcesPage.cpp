#include "Page.h"
#include "PageRegistry.h"
#include "Theme.h"

#include "Util.h"

#include <QBitmap>
#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QMap>
#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr int kTile = 56;         // of a picture
constexpr int kSingleWidth = 152; // of a picture on both grounds

// A tile whose edges lie on device pixels, and which is sharp at 150 per cent, too.
void drawTile(QPainter &painter, const QRect &rect, const QColor &ground, const QColor &frame)
{
    const QTransform toDevice = painter.deviceTransform();
    const QRectF exact = toDevice.mapRect(QRectF(rect));
    const QRect pixels(exact.topLeft().toPoint(), exact.bottomRight().toPoint() - QPoint(1, 1));
    const int line = qMax(1, qRound(toDevice.m11()));
    painter.save();
    painter.setTransform(toDevice.inverted(), true);
    painter.fillRect(pixels, frame);
    painter.fillRect(pixels.adjusted(line, line, -line, -line), ground);
    painter.restore();
}

// Pictures side by side, each in the middle of a tile, on one ground.
class PictureStrip : public QWidget
{
public:
    PictureStrip(const QStringList &names, const theme::Tone &ground, int tile = kTile)
        : m_ground(ground), m_tile(tile)
    {
        setFixedSize(tile * names.size(), tile);
        theme::follow(this, [this, names] {
            m_pictures.clear();
            m_visible = QRect();
            for (const QString &name : names)
                m_pictures << (name.isEmpty() ? QPixmap() : theme::picture(name));
            for (const QPixmap &picture : qAsConst(m_pictures))
                m_visible |= visiblePart(picture);
        });
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform); // a picture of another density is scaled
        const QColor ground = m_ground;
        const bool isBare = ground == theme::kGround.color(); // as the page is
        drawTile(painter, rect(), ground, isBare ? theme::kLine : m_ground);
        QRect tile(0, 0, m_tile, m_tile);
        for (const QPixmap &picture : qAsConst(m_pictures)) {
            if (picture.isNull()) { // there is none for this state
                QRectF dash(0, 0, theme::kUnit / 2.0, 1);
                dash.moveCenter(QRectF(tile).center());
                painter.fillRect(dash, theme::kSideHeading);
            } else {
                painter.drawPixmap(tile.topLeft() + inTile() - m_visible.topLeft(), picture);
            }
            tile.translate(m_tile, 0);
        }
    }

private:
    // Logical pixels of `picture` that are not all transparent.
    static QRect visiblePart(const QPixmap &picture)
    {
        const QRect pixels = QRegion(picture.mask()).boundingRect();
        if (picture.isNull() || pixels.isEmpty())
            return QRect(QPoint(0, 0), picture.size() / picture.devicePixelRatio());
        const qreal ratio = picture.devicePixelRatio();
        return QRectF(pixels.x() / ratio, pixels.y() / ratio, pixels.width() / ratio, pixels.height() / ratio)
            .toAlignedRect();
    }

    // Puts the middle of what is visible in all states into the middle of a tile.
    QPoint inTile() const
    {
        return QPoint((m_tile - m_visible.width()) / 2, (m_tile - m_visible.height()) / 2);
    }

    QVector<QPixmap> m_pictures;
    QRect m_visible; // of all of them, were they laid on each other
    theme::Tone m_ground;
    int m_tile;
};

QStringList states()
{
    return {"normal", "hover", "press", "disable"};
}

class Swatch : public QWidget
{
public:
    explicit Swatch(const QColor &color) : m_color(color) // invalid: a built-in one
    {
        setFixedSize(12 * theme::kUnit, 6 * theme::kUnit);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        drawTile(painter, rect(), m_color.isValid() ? m_color : theme::kGround.color(),
                 m_color.isValid() ? m_color : theme::kLine.color());
    }

private:
    QColor m_color;
};

QWidget *facts(const QVector<QPair<QString, QString>> &lines)
{
    auto *box = new QWidget;
    auto *form = new QFormLayout(box);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(3 * theme::kUnit);
    form->setVerticalSpacing(theme::kUnit);
    for (const auto &line : lines) {
        QLabel *value = theme::label(line.second, theme::Normal, 14, theme::kText, true);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        form->addRow(theme::label(line.first, theme::Normal, 14, theme::kText), value);
    }
    return box;
}

void addPaths(Page *page)
{
    page->addSection("Paths", "The folder res lies beside the program's own folder.")
        ->addWide(
            facts({{"getResFullPath(\"../res/UIConfig.ini\")", Util::getResFullPath("../res/UIConfig.ini")},
                   {"getLumResFullPath(\"langind.ini\")", Util::getLumResFullPath("langind.ini")},
                   {"getcurappPath(\"settings.ini\")", Util::getcurappPath("settings.ini")}}));
}

void addFonts(Page *page)
{
    Section *section =
        page->addSection("Fonts", "One family per weight and interface language, from the font table. "
                                  "Widgets are set in the normal weight at 14 pixels.");
    const QVector<QPair<QString, theme::Weight>> weights{{"Light", theme::Light},
                                                         {"Normal", theme::Normal},
                                                         {"Semibold", theme::Semibold},
                                                         {"Bold", theme::Bold}};
    QVector<Sample> specimens;
    for (const auto &weight : weights) {
        QLabel *specimen = theme::label("Ag 0123", weight.second, 34, theme::kInk);
        specimens << Sample{weight.first + ": " + theme::font(weight.second, 14).family(), specimen};
    }
    section->addColumns(4, specimens);
    auto *lines = new QWidget;
    auto *layout = new QVBoxLayout(lines);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(theme::kUnit);
    for (const auto &weight : weights) {
        layout->addWidget(theme::label("Sphinx of black quartz, judge my vow. Größe, façade, señor, 1 234,50",
                                       weight.second, 14, theme::kText));
    }
    section->addWide(lines);
}

QString named(const QColor &color)
{
    return color.isValid() ? color.name() : QString("built-in");
}

void addColors(Page *page)
{
    bool found = false;
    const QColor ground = Util::GetWindowTitleBgColor();
    const QColor text = Util::GetWindowTitleTextColor();
    const QColor line = Util::GetWindowTitleBottomLineClr(found);
    page->addSection("Colours",
                     "Title bars take theirs from UIConfig.ini; a missing one leaves the built-in colour. "
                     "The accents are the library's own.")
        ->addColumns(3, {{"title_bgcolor " + named(ground), new Swatch(ground)},
                         {"title_textcolor " + named(text), new Swatch(text)},
                         {"title_bottonline " + named(line), new Swatch(line)},
                         {"Accent #1f71bf", new Swatch(QColor(31, 113, 191))},
                         {"Accent #4baeb2", new Swatch(QColor(75, 174, 178))},
                         {"Accent #49a7f5", new Swatch(QColor(73, 167, 245))}});
}

// A picture in its states: "list" of list_normal.png, list_hover.png and so on.
using States = QMap<QString, QString>; // state to file name

QString stateOf(const QString &baseName)
{
    const QString last = baseName.section('_', -1);
    if (last == "noemal") // as the library reads it
        return "normal";
    return states().contains(last) ? last : QString();
}

// Sorts the pictures of a folder of res/ into those that come in states, by name, and single ones.
void collect(const QString &folder, QMap<QString, States> &inStates, QStringList &single)
{
    const QDir dir(theme::picturePath(folder.isEmpty() ? QString(".") : folder));
    const QString prefix = folder.isEmpty() ? QString() : folder + '/';
    QStringList others;
    const QStringList files = dir.entryList({"*.png", "*.svg"}, QDir::Files, QDir::Name);
    for (const QString &file : files) {
        const QString base = file.section('.', 0, -2);
        if (base.contains('@')) // the same picture for a dense screen
            continue;
        const QString state = stateOf(base);
        if (state.isEmpty())
            others << file;
        else
            inStates[prefix + base.section('_', 0, -2)][state] = prefix + file;
    }
    for (const QString &file : qAsConst(others)) {
        const QString family = prefix + file.section('.', 0, -2);
        if (inStates.contains(family))
            inStates[family]["normal"] = prefix + file; // its normal state has no suffix
        else
            single << prefix + file;
    }
}

void addPicturesInStates(Page *page, const QMap<QString, States> &inStates)
{
    Section *section = page->addSection(
        "Pictures by state",
        "From the left: normal, hovered, pressed and disabled. Those of Common are for the dark title bar "
        "alone; a short dash says that there is no file. Straight strokes have files of their own for 125, "
        "150 and 175 per cent.");
    const QStringList order = states();
    QVector<SampleRow> rows;
    for (auto it = inStates.begin(); it != inStates.end(); ++it) {
        QStringList files;
        for (const QString &state : order)
            files << it->value(state);
        // Those of the title bar are for dark grounds only.
        QWidget *onWhite = it.key().startsWith("Common/") ? nullptr : new PictureStrip(files, theme::kGround);
        rows << SampleRow{it.key(), {onWhite, new PictureStrip(files, theme::kSide)}};
    }
    const QString onWhite = QStringLiteral("On white");
    section->addTable({onWhite, "On the dark title bar"}, rows);
    const auto labels = section->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (label->text() == onWhite) {
            theme::follow(label, [label, onWhite] {
                const QColor ground = theme::kGround;
                label->setText(ground == Qt::white ? onWhite : QStringLiteral("On the page"));
            });
        }
    }
}

void addSinglePictures(Page *page, const QStringList &single)
{
    QVector<Sample> samples;
    for (const QString &file : single) {
        auto *both = new QWidget;
        auto *layout = new QHBoxLayout(both);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(theme::kUnit);
        const int tile = (kSingleWidth - theme::kUnit) / 2;
        layout->addWidget(new PictureStrip({file}, theme::kGround, tile));
        layout->addWidget(new PictureStrip({file}, theme::kSide, tile));
        samples << Sample{file, both};
    }
    page->addSection("Single pictures", "These have one state. Their names are those of their files.")
        ->addColumns(4, samples, kSingleWidth);
}

void addLoading(Page *page)
{
    QStringList frames;
    for (int i = 0; i < 24; ++i)
        frames << QString("loading/loading%1.png").arg(i, 2, 10, QChar('0'));
    Section *section = page->addSection("Spinner", "The frames of the waiting animation, in their order.");
    section->addWide(new PictureStrip(frames.mid(0, 12), theme::kGround, 72));
    section->addWide(new PictureStrip(frames.mid(12), theme::kGround, 72));
}

Page *makePage()
{
    auto *page =
        new Page("Resources", "Util: where the library finds its pictures, fonts and colours, and what is "
                              "there.");
    addPaths(page);
    addFonts(page);
    addColors(page);
    QMap<QString, States> inStates;
    QStringList single;
    collect(QString(), inStates, single);
    collect("Common", inStates, single);
    addPicturesInStates(page, inStates);
    addSinglePictures(page, single);
    addLoading(page);
    return page;
}

void registerThis()
{
    registerPage({"resources", "Resources", PageGroup::Foundation, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
