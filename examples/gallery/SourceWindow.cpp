#include "SourceWindow.h"

#include "Theme.h"

#include "CBPPopWnd.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSyntaxHighlighter>
#include <QTextBlock>

#include <utility>

namespace {

// Lines of a source, first and last.
struct LineRange
{
    int first = -1;
    int last = -1;
};

constexpr int kTitleClose = 8;
constexpr int kClose = 0x100000;
constexpr QSize kSize(880, 640);
constexpr int kFontSize = 13;
constexpr int kLinesAbove = 2;
constexpr theme::Tone kComment{0xff5a6472, theme::Purpose::QuietText};
constexpr theme::Tone kString{0xffa34a18, theme::Purpose::Warning};
constexpr theme::Tone kKeyword{0xff7a3e9d, theme::Purpose::Danger, theme::Purpose::Accent, 50};

class Highlighter : public QSyntaxHighlighter
{
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString &line) override
    {
        mark(line, m_classes, theme::kAccentHovered);
        mark(line, m_keywords, kKeyword);
        mark(line, m_strings, kString);
        mark(line, m_comments, kComment);
    }

private:
    void mark(const QString &line, const QRegularExpression &what, const theme::Tone &tone)
    {
        QRegularExpressionMatchIterator found = what.globalMatch(line);
        while (found.hasNext()) {
            const QRegularExpressionMatch match = found.next();
            setFormat(match.capturedStart(), match.capturedLength(), tone.color());
        }
    }

    const QRegularExpression m_classes{QStringLiteral("\\bI?C[A-Z]\\w+")};
    const QRegularExpression m_keywords{QStringLiteral(
        "^#\\w+|\\b(auto|bool|class|const|constexpr|else|emit|enum|false|for|if|int|namespace|"
        "new|nullptr|override|public|private|protected|return|static|struct|true|void|while)\\b")};
    const QRegularExpression m_strings{QStringLiteral("\"(\\\\.|[^\"\\\\])*\"")};
    const QRegularExpression m_comments{QStringLiteral("//.*$")};
};

class SourceWindow : public CBPPopWnd
{
public:
    SourceWindow(const PageInfo &page, QWidget *parent) : CBPPopWnd(false, parent)
    {
        Init(true);
        SetWindowTitle(page.file);
        ShowTitleBtn(kTitleClose, true);
        SetMainBoxBorder(0, 0, 0, 0);
        SetStatusBoxBorder(24, 12, 24, 16);
        m_text = new QPlainTextEdit;
        m_text->setReadOnly(true);
        m_text->setFrameShape(QFrame::NoFrame);
        m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
        m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        m_text->setAccessibleName(tr("Source of %1").arg(page.title));
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPixelSize(kFontSize);
        m_text->setFont(font);
        m_text->document()->setDocumentMargin(2 * theme::kUnit);
        auto *highlighter = new Highlighter(m_text->document());
        m_text->setPlainText(sourceOf(page));
        connect(CBPTheme::instance(), &CBPTheme::changed, highlighter, &QSyntaxHighlighter::rehighlight);
        AppendContent(m_text, true, true, 0);
        AppendBtn(kClose);
        resize(kSize);
    }

    // Marks lines, and shows them from the first.
    void mark(const LineRange &lines)
    {
        if (lines.first < 0)
            return;
        QTextCursor cursor(m_text->document()->findBlockByNumber(lines.first));
        m_text->setTextCursor(cursor);
        theme::follow(m_text, [this, lines] { markGround(lines); });
        m_firstLine = qMax(0, lines.first - kLinesAbove);
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        CBPPopWnd::showEvent(event);
        m_text->verticalScrollBar()->setValue(m_firstLine);
        m_text->setFocus();
    }

private:
    void markGround(const LineRange &lines)
    {
        QTextEdit::ExtraSelection ground;
        ground.format.setBackground(theme::kAccentTint.color());
        ground.format.setProperty(QTextFormat::FullWidthSelection, true);
        QList<QTextEdit::ExtraSelection> marks;
        for (int line = lines.first; line <= lines.last; ++line) {
            ground.cursor = QTextCursor(m_text->document()->findBlockByNumber(line));
            marks << ground;
        }
        m_text->setExtraSelections(marks);
    }

    QPlainTextEdit *m_text;
    int m_firstLine = 0;
};

bool beginsFunction(const QString &line)
{
    return !line.isEmpty() && (line.at(0).isLetter() || line.startsWith(QLatin1String("//")));
}

// The function in which the section's title stands; -1 where it stands nowhere.
LineRange linesOfSection(const QString &source, const QString &section)
{
    const QStringList lines = source.split(QLatin1Char('\n'));
    const QString literal = QLatin1Char('"') +
                            QString(section).replace(QLatin1Char('"'), QLatin1String("\\\"")) +
                            QLatin1Char('"');
    for (int line = 0; line < lines.size(); ++line) {
        if (!lines[line].contains(literal))
            continue;
        LineRange range{line, line};
        while (range.first > 0 && !beginsFunction(lines[range.first]))
            --range.first;
        while (range.first > 0 && beginsFunction(lines[range.first - 1]))
            --range.first;
        while (range.last + 1 < lines.size() && !lines[range.last].startsWith(QLatin1Char('}')))
            ++range.last;
        return range;
    }
    return LineRange();
}

} // namespace

void showSource(const PageInfo &page, const QString &section, QWidget *parent)
{
    SourceWindow window(page, parent);
    window.mark(linesOfSection(sourceOf(page), section));
    window.Run();
}
