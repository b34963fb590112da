#include "EventLog.h"

#include "Theme.h"

#include "CBPPushBtn.h"

#include <QPainter>

namespace {

constexpr int kLines = 3;
constexpr int kLineHeight = 22;
constexpr int kPadding = 12;

} // namespace

EventLog::EventLog(const QString &hint, QWidget *parent) : QWidget(parent), m_hint(hint)
{
    setFixedHeight(kLines * kLineHeight + 2 * kPadding);
    setMinimumWidth(theme::kPageWidth / 2);
    setFont(theme::font(theme::Normal, 13));
    setAccessibleName(tr("Log of signals"));
}

void EventLog::add(const QString &line)
{
    m_lines.prepend(QStringLiteral("%1   %2").arg(++m_count).arg(line));
    while (m_lines.size() > kLines)
        m_lines.removeLast();
    update();
}

void EventLog::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    theme::paintPanel(painter, rect());
    QRect line(kPadding + 4, kPadding, width() - 2 * kPadding - 8, kLineHeight);
    painter.setPen(theme::kCaption);
    painter.setLayoutDirection(Qt::LeftToRight); // of the texts, which are English
    const int start = int(theme::lineStart() | Qt::AlignVCenter);
    if (m_lines.isEmpty())
        painter.drawText(line, start, m_hint);
    for (const QString &text : qAsConst(m_lines)) {
        painter.setPen(text == m_lines.first() ? theme::kInk : theme::kCaption);
        painter.drawText(line, start, text);
        line.translate(0, kLineHeight);
    }
}

CBPPushBtn *loggedButton(const QString &text, EventLog *log, const std::function<void(EventLog *)> &act)
{
    constexpr int kWidth = 184;
    auto *button = new CBPPushBtn(text, nullptr);
    button->setFixedSize(kWidth, theme::kControlHeight);
    QObject::connect(button, &CBPPushBtn::sigBtnClicked, log, [log, act] { act(log); });
    return button;
}
