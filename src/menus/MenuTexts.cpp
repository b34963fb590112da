#include "menus/MenuTexts.h"

#include <QAction>
#include <QFontMetrics>

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
    const QFontMetrics metrics(font);
    text->underlineX = mnemonic < 0 ? 0 : metrics.horizontalAdvance(text->shown, mnemonic);
    text->underlineWidth =
        mnemonic < 0 ? 0 : metrics.horizontalAdvance(text->shown, mnemonic + 1) - text->underlineX;
    if (text->size.width() > room) {
        text->shown = metrics.elidedText(text->shown, Qt::ElideRight, qMax(0, room));
        text->size = text->layout.lineSize(text->shown, font);
        if (text->underlineX + text->underlineWidth > text->size.width())
            text->underlineWidth = 0;
    }
    return *text;
}

} // namespace lumqt
