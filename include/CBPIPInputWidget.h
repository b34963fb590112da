#pragma once

#include "LumQtGlobal.h"

#include <QWidget>

class CBPIPAddrEdit;

/// A field for an IPv4 address: four octets in a box, with dots between them.
///
/// Octets may be empty; a whole address pasted or dropped into any of them fills all. The order of the octets
/// is left to right in every language. The field has a fixed size; the focus that it is given goes to its
/// first octet, and while an octet has it, a ring around the field shows that (not where the field is a
/// window). Screen readers find a group with four named edits.
///
/// Slots of its signals use deleteLater() for it: its line edits are still at work then. GUI thread only.
/// \since 1.0
class LUMQT_EXPORT CBPIPInputWidget : public QWidget
{
    Q_OBJECT
    /// The address in dotted notation; a text that is none, the empty one too, changes nothing. \since 1.0
    Q_PROPERTY(QString ip READ ip WRITE setIP NOTIFY textChanged)

public:
    /// A field with four empty octets. \since 1.0
    explicit CBPIPInputWidget(QWidget *parent = nullptr);
    ~CBPIPInputWidget() override;

    /// Shows the address \a ip in dotted notation: four numbers of one to three digits, 0 to 255. Any other
    /// text changes nothing. \since 1.0
    void setIP(const QString &ip);

    /// Shows the address whose first octet is the lowest byte of \a ip and whose last is the fourth byte;
    /// what is above is left out. Mind that IPAddrNum() counts the other way round: setIP(IPAddrNum())
    /// reverses the octets. \since 1.0
    void setIP(unsigned long ip);

    /// The four octets as they stand, with dots between them: "192..0.1" while the second is empty.
    /// \since 1.0
    QString IPAddrString();

    /// IPAddrString() of a constant field. \since 1.0
    QString ip() const;

    /// The address as a number whose highest byte is the first octet. An empty octet counts 0. \since 1.0
    unsigned int IPAddrNum();

Q_SIGNALS:
    /// The text of an octet changed, by the user or by the program; \a text is that of the whole address. A
    /// new address sends it once for each octet that changes. \since 1.0
    void textChanged(const QString &text);

    /// The user changed an octet; \a text is that of the whole address. \since 1.0
    void textEdited(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void onTextChanged(const QString &text);
    void onTextEdited(const QString &text);

private:
    static constexpr int kOctets = 4;

    void init();

    CBPIPAddrEdit *m_pEdits[kOctets] = {};
};
