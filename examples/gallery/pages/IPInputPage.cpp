#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPIPAddrEdit.h"
#include "CBPIPInputWidget.h"

#include <QTimer>

namespace {

CBPIPInputWidget *lowField(const QString &address)
{
    auto *result = new CBPIPInputWidget;
    result->setFont(theme::font(theme::Normal, 12));
    result->setIP(address);
    return result;
}

// As high as the other fields of a form.
CBPIPInputWidget *field(const QString &address)
{
    CBPIPInputWidget *result = lowField(address);
    result->setFixedHeight(theme::kControlHeight);
    return result;
}

CBPIPInputWidget *partly(const QStringList &octets)
{
    CBPIPInputWidget *result = field(QString());
    const auto edits = result->findChildren<CBPIPAddrEdit *>();
    for (int i = 0; i < octets.size() && i < edits.size(); ++i)
        edits[i]->setText(octets[i]);
    return result;
}

CBPIPInputWidget *focused()
{
    CBPIPInputWidget *result = field("192.168.0.1");
    const auto octets = result->findChildren<CBPIPAddrEdit *>();
    for (CBPIPAddrEdit *octet : octets)
        pose::put(octet, octet == octets.value(1) ? pose::Focused : pose::Normal);
    // An edit drops its selection when its window opens without giving it the focus.
    QObject::connect(octets.value(1), &QLineEdit::selectionChanged, octets.value(1),
                     [octet = octets.value(1)] {
                         if (!octet->hasSelectedText())
                             QTimer::singleShot(0, octet, &QLineEdit::selectAll);
                     });
    return result;
}

void addLiveSamples(Page *page)
{
    Section *section = page->addSection(
        "Try it",
        "Three digits, a dot or Space go on to the next octet, the arrow keys and Backspace back. "
        "Paste a whole address into any octet. Tab and a click select an octet; a second click sets "
        "the cursor.");
    auto *log = new EventLog("No signal yet: type an address.");
    CBPIPInputWidget *live = field(QString());
    QObject::connect(live, &CBPIPInputWidget::textChanged, log,
                     [log](const QString &text) { log->add(QString("textChanged(\"%1\")").arg(text)); });
    QObject::connect(live, &CBPIPInputWidget::textEdited, log,
                     [log](const QString &text) { log->add(QString("textEdited(\"%1\")").arg(text)); });
    section->addSamples({{"CBPIPInputWidget", live}});
    section->addWide(log);
}

void addStates(Page *page)
{
    Section *section = page->addSection(
        "States",
        "An octet may be empty; any other is a number from 0 to 255. The ring shows that one of the octets "
        "has the focus.");
    section->addColumns(4, {{"Empty", field(QString())},
                            {"An address", field("192.168.0.1")},
                            {"The widest address", field("255.255.255.255")},
                            {"An empty octet", partly({"192", "", "0", "1"})},
                            {"Focused, on the second octet", focused()},
                            {"Disabled", pose::in(pose::Disabled, field("192.168.0.1"))},
                            {"As low as it comes, 19 pixels", lowField("192.168.0.1")}});
}

void addNumbers(Page *page)
{
    Section *section = page->addSection("Numbers", "setIP() takes the first octet from the lowest byte of a "
                                                   "number, and IPAddrNum() returns it as the highest "
                                                   "byte: the orders differ on purpose.");
    CBPIPInputWidget *number = field(QString());
    number->setIP(0x0100a8c0ul);
    const QString back = QString::number(number->IPAddrNum(), 16);
    section->addSamples({{QString("setIP(0x0100a8c0); IPAddrNum() is 0x%1").arg(back), number}});
}

Page *makePage()
{
    auto *page = new Page("IP address", "CBPIPInputWidget: a field for an IPv4 address.");
    addLiveSamples(page);
    addStates(page);
    addNumbers(page);
    return page;
}

void registerThis()
{
    registerPage({"ip-address", "IP address", PageGroup::Input, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
