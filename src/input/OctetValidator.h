#pragma once

#include <QIntValidator>

#include <algorithm>

namespace lumqt {

// 0 to 255 in at most three digits. The base class goes by the language: it takes 256 for a beginning of
// something, "1 " and "1." for numbers here and there, and signs everywhere.
class OctetValidator : public QIntValidator
{
public:
    static constexpr int kDigits = 3;
    static constexpr int kGreatest = 255;

    explicit OctetValidator(QObject *parent = nullptr) : QIntValidator(0, kGreatest, parent) {}

    static bool accepts(const QString &text)
    {
        const bool digits = std::all_of(text.begin(), text.end(), [](QChar character) {
            return character >= QLatin1Char('0') && character <= QLatin1Char('9');
        });
        return digits && !text.isEmpty() && text.size() <= kDigits && text.toInt() <= kGreatest;
    }

    State validate(QString &text, int &) const override
    {
        if (text.isEmpty())
            return Intermediate;
        return accepts(text) ? Acceptable : Invalid;
    }

    void fixup(QString &) const override {}
};

// The four parts of an IPv4 address in dotted notation; none when `text` is no such address.
inline QStringList octetsOf(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    const bool whole = parts.size() == 4 && std::all_of(parts.begin(), parts.end(), &OctetValidator::accepts);
    return whole ? parts : QStringList();
}

} // namespace lumqt
