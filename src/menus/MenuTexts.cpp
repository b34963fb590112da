#include "menus/MenuTexts.h"

#include <QAction>
#include <QFontMetrics>
#include <QTextLayout>

namespace lumqt {

namespace {

// What a menu shows of an action's text: "&" marks the next character as mnemonic, "&&" and an "&" that
// stands alone are an ampersand, and a shortcut behind a tab is not shown. `mnemonic` becomes the index of
// the marked character, or -1.
QString shownText(const QString &text, int &mnemonic)
{
    const QString item = text.section(QLatin1Char('\t'), 0, 0);
    QString shown;
    shown.reserve(item.size());
    mnemonic = -1;
    for (int i = 0; i < item.size(); ++i) {
        if (item.at(i) == QLatin1Char('&') && i + 1 < item.size() && !item.at(i + 1).isSpace()) {
            ++i;
            if (item.at(i) != QLatin1Char('&') && mnemonic < 0)
                mnemonic = shown.size();
        }
        shown += item.at(i);
    }
    return shown;
}

// Where the character at `index` stands, however the text runs.
void underline(MenuTexts::Text &text, int index, const QFont &font)
{
    QTextLayout layout(text.shown, font);
    QTextOption option;
    option.setTextDirection(text.shown.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight); // as it is drawn
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const int one = qRound(line.cursorToX(index));
    const int other = qRound(line.cursorToX(index, QTextLine::Trailing));
    text.underlineX = qMin(one, other);
    text.underlineWidth = qAbs(one - other);
}

} // namespace

MenuTexts::Text &MenuTexts::text(const QAction *action, const QFont &font, int room)
{
    QSharedPointer<Text> &text = m_texts[action];
    if (!text)
        text = QSharedPointer<Text>::create();
    if (text->room == room && text->source == action->text())
        return *text;

    text->room = room;
    text->source = action->text();
    int mnemonic = -1;
    text->shown = shownText(text->source, mnemonic);
    text->size = text->layout.lineSize(text->shown, font);
    text->underlineWidth = 0;
    if (text->size.width() > room) {
        text->shown = QFontMetrics(font).elidedText(text->shown, Qt::ElideRight, qMax(0, room));
        text->size = text->layout.lineSize(text->shown, font);
        if (mnemonic >= text->shown.size() - 1) // the ellipsis stands there, or for it
            mnemonic = -1;
    }
    if (mnemonic >= 0)
        underline(*text, mnemonic, font);
    return *text;
}

} // namespace lumqt
