#pragma once

#include <QWidget>

#include <functional>

class CBPPushBtn;

// The last few signals that live samples sent, the newest on top.
class EventLog : public QWidget
{
public:
    // `hint` stands there until the first signal comes.
    explicit EventLog(const QString &hint, QWidget *parent = nullptr);

    void add(const QString &line);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_hint;
    QStringList m_lines;
    int m_count = 0;
};

// A button for a live sample, which calls `act` with the log that it tells. As wide as its siblings.
CBPPushBtn *loggedButton(const QString &text, EventLog *log, const std::function<void(EventLog *)> &act);
