#include "CBPWinFrmTitle.h"

#include "CBPImageButton.h"
#include "foundation/Accessible.h"
#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "foundation/Log.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/QtCompat.h"
#include "frames/TitleLabel.h"
#include "Util.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <iterator>

namespace {

// Look and metrics, in logical pixels.
constexpr unsigned int kRadius = 12;
constexpr int kHeight = 60;
constexpr int kLeftMargin = 16;
constexpr int kRightMargin = 12;
constexpr int kSpacing = 5;
constexpr int kRightRowMargin = 6;
constexpr int kRightRowSpacing = 8;
constexpr int kRightRowGap = 8; // between two buttons, beside the spacing
constexpr int kBackHeight = 32;

enum Id {
    MinimizeId = 2,
    MaximizeId = 4,
    CloseId = 8,
    SettingsId = 16,
    FreeId = 32,
    MenuId = 64,
    BackId = 128,
    IconId = 256,
    TitleId = 512,
    ContactId = 1024,
    SupportId = 2048,
    OfferId = 4096,
};
// Those that titleBtn() knows, in the order it looks at them.
constexpr Id kFoundIds[] = {MinimizeId, MaximizeId, CloseId, SettingsId, FreeId, MenuId, BackId};
constexpr Id kButtonIds[] = {MinimizeId, MaximizeId, CloseId,   SettingsId, FreeId,
                             MenuId,     BackId,     ContactId, SupportId,  OfferId};
// Those that are enabled together.
constexpr int kCommonIds = BackId | MenuId | CloseId | MinimizeId;
// Those that the bar does not make itself.
constexpr int kInsertedIds = MaximizeId | SettingsId | FreeId | ContactId;

// The images "<stem>normal<suffix>" and so on, in the order of the button's states.
QVector<QString> stateImages(QString (*path)(const QString &), const QString &stem, const QString &suffix)
{
    QVector<QString> images;
    for (const char *state : {"normal", "hover", "press", "disable"})
        images << path(stem + QLatin1String(state) + suffix);
    return images;
}

QVector<QString> commonImages(const char *stem, const char *suffix)
{
    return stateImages(&Util::getLumResFullPath, QLatin1String(stem), QLatin1String(suffix));
}

// There are two drawings for four states.
QVector<QString> giftImages()
{
    const QString normal = Util::getLumResFullPath(QStringLiteral("gift_normal.svg"));
    const QString hover = Util::getLumResFullPath(QStringLiteral("gift_hover.svg"));
    return {normal, hover, hover, normal};
}

QVector<QString> closeImages()
{
    QVector<QString> images = commonImages("ico_guanbi_", ".svg");
    images[0] = Util::getLumResFullPath(QStringLiteral("ico_guanbi_noemal.svg")); // named so as shipped
    return images;
}

// The same lists for every bar: a program's folder does not change.
struct TitleImages
{
    const QVector<QString> gift = giftImages();
    const QVector<QString> support = commonImages("ico_onlinesupport_", ".svg");
    const QVector<QString> minimize = commonImages("minimize_", ".png");
    const QVector<QString> close = closeImages();
    const QVector<QString> menu = commonImages("ico_more_", ".svg");
    const QVector<QString> back = commonImages("back_", ".png");
};

const TitleImages &titleImages()
{
    static const TitleImages images;
    return images;
}

} // namespace

CBPWinFrmTitle::CBPWinFrmTitle(QWidget *parent)
    : CRoundedRectBase(kRadius, parent, true, true, false, false), m_parentWindow(parent)
{
    lumqt::installAccessible("CBPWinFrmTitle", [](QWidget *widget) -> QAccessibleInterface * {
        return new QAccessibleWidget(widget, QAccessible::TitleBar);
    });
    Init();
}

// ----------------------------------------------------------------------------------------------------------
// construction

void CBPWinFrmTitle::Init()
{
    createLabels();
    createButtons();
    createLayout();
    retranslate();
    m_chosenBrush = m_brush; // nobody has set them yet
    m_titleBrush = m_title.widget->palette().brush(QPalette::WindowText);
    chooseColors();
    lumqt::onThemeChange(this, [this] { chooseColors(); });
}

void CBPWinFrmTitle::createLabels()
{
    m_icon.widget = new QLabel(this);
    m_title.widget = new lumqt::TitleLabel(this);
    m_title.widget->setObjectName(QStringLiteral("CBPWinFrmTitle_WindTitle"));
    m_title.widget->setFont(lumqt::uiFont());
    m_icon.widget->hide();
    m_title.widget->hide();
}

void CBPWinFrmTitle::createButtons()
{
    const TitleImages &images = titleImages();
    m_offerBtn = CreateImgButton(images.gift, OfferId, false);
    m_supportBtn = CreateImgButton(images.support, SupportId, false);
    m_minBtn = CreateImgButton(images.minimize, MinimizeId, false);
    m_closeBtn = CreateImgButton(images.close, CloseId, false);
    m_menuBtn = CreateImgButton(images.menu, MenuId, false);
    m_backBtn = CreateImgButton(images.back, BackId, true);
    m_backBtn->m_turnsImage = true;
    m_backBtn->SetHight(kBackHeight);
    m_backBtn->setFixedHeight(kBackHeight);
}

CBPImageButton *CBPWinFrmTitle::CreateImgButton(const QVector<QString> &images, int id, bool round)
{
    auto *button = new CBPImageButton(images, round, id, this);
    button->SetBorder(0, true);
    button->setFocusPolicy(Qt::NoFocus);
    button->hide();
    connect(button, SIGNAL(btn_released(int)), this, SLOT(on_btn_clicekedSlot(int)));
    return button;
}

void CBPWinFrmTitle::createLayout()
{
    m_rightRow = new QHBoxLayout;
    m_rightRow->setSpacing(kRightRowSpacing);
    m_rightRow->addWidget(m_offerBtn, 0, Qt::AlignCenter);
    for (CBPImageButton *next : {m_supportBtn.data(), m_menuBtn.data(), m_minBtn.data(), m_closeBtn.data()}) {
        m_rightRow->addSpacing(kRightRowGap);
        m_rightRow->addWidget(next, 0, Qt::AlignCenter);
    }

    auto *row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    row->addWidget(m_icon.widget, 0, Qt::AlignVCenter);
    row->addWidget(m_title.widget, 0, Qt::AlignVCenter);
    row->addWidget(m_backBtn, 0, Qt::AlignCenter);
    row->addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
    row->addLayout(m_rightRow);
    setLayout(row);
    setFixedHeight(kHeight);
    chooseSides();
}

// Layouts mirror what they hold, and not their margins.
void CBPWinFrmTitle::chooseSides()
{
    const auto set = [mirrored = isRightToLeft()](QLayout *row, int left, int right) {
        row->setContentsMargins(mirrored ? right : left, 0, mirrored ? left : right, 0);
    };
    set(layout(), kLeftMargin, kRightMargin);
    set(m_rightRow, 0, kRightRowMargin);
}

void CBPWinFrmTitle::retranslate()
{
    SetIconTips();
    if (m_offerBtn)
        m_offerBtn->setToolTip(tr("Limited-time Offer"));
    if (m_backBtn)
        m_backBtn->setToolTip(tr("Back"));
    nameButtons();
}

// Those that have no tool tip to be named by, also where there are two of a kind.
void CBPWinFrmTitle::nameButtons()
{
    nameButton(m_minBtn, tr("Minimize"));
    nameButton(m_closeBtn, tr("Close"));
    const auto known = findChildren<CBPImageButton *>(QString(), Qt::FindDirectChildrenOnly);
    for (CBPImageButton *button : known) {
        if (button->GetID() == MaximizeId)
            nameButton(button, m_maximised ? tr("Restore") : tr("Maximize"));
        else if (button->GetID() == SettingsId)
            nameButton(button, tr("Settings"));
    }
}

// A name that the application gave stays, also one by a tool tip.
void CBPWinFrmTitle::nameButton(CBPImageButton *button, const QString &name)
{
    if (!button || button->accessibleName() != button->m_barName || !button->toolTip().isEmpty())
        return;
    button->m_barName = name;
    button->setAccessibleName(name);
}

void CBPWinFrmTitle::SetIconTips()
{
    if (m_menuBtn)
        m_menuBtn->setToolTip(tr("Menu"));
    if (m_supportBtn)
        m_supportBtn->setToolTip(tr("Online Support"));
}

// ----------------------------------------------------------------------------------------------------------
// labels

void CBPWinFrmTitle::showContent(const Label &label)
{
    const bool empty = label.widget->text().isEmpty() && label.widget->pixmap(Qt::ReturnByValue).isNull();
    label.widget->setVisible(label.allowed && !empty);
}

void CBPWinFrmTitle::showImage(Label &label, const QString &path)
{
    label.image = path;
    label.ratio = devicePixelRatioF();
    label.widget->setPixmap(lumqt::loadPixmap(path, label.ratio));
    showContent(label);
}

// Takes the images anew when the bar has come to a screen of another density.
void CBPWinFrmTitle::refreshImages()
{
    for (Label *label : {&m_icon, &m_title}) {
        if (!label->image.isEmpty() && label->ratio != devicePixelRatioF())
            showImage(*label, label->image);
    }
}

void CBPWinFrmTitle::SetTitle(QString s, bool isImage)
{
    const QString before = title();
    if (isImage) {
        showImage(m_title, s);
    } else {
        m_title.image.clear();
        m_title.widget->setText(s);
        showContent(m_title);
    }
    if (before != title())
        emit titleChanged(title()); // the bar may be gone after
}

void CBPWinFrmTitle::setTitle(const QString &text)
{
    SetTitle(text, false);
}

QString CBPWinFrmTitle::title() const
{
    return m_title.widget->text();
}

void CBPWinFrmTitle::SetLog(QString &path)
{
    showImage(m_icon, path);
}

void CBPWinFrmTitle::SetTitleTextStyle(const QString &css)
{
    m_title.widget->setStyleSheet(css);
}

QString CBPWinFrmTitle::titleTextStyle() const
{
    return m_title.widget->styleSheet();
}

// ----------------------------------------------------------------------------------------------------------
// buttons

QPointer<CBPImageButton> *CBPWinFrmTitle::slot(int id)
{
    switch (id) {
    case MinimizeId:
        return &m_minBtn;
    case MaximizeId:
        return &m_maxBtn;
    case CloseId:
        return &m_closeBtn;
    case SettingsId:
        return &m_settingsBtn;
    case FreeId:
        return &m_freeBtn;
    case MenuId:
        return &m_menuBtn;
    case BackId:
        return &m_backBtn;
    case ContactId:
        return &m_contactBtn;
    case SupportId:
        return &m_supportBtn;
    case OfferId:
        return &m_offerBtn;
    default:
        return nullptr;
    }
}

CBPImageButton *CBPWinFrmTitle::button(int id) const
{
    const auto *found = const_cast<CBPWinFrmTitle *>(this)->slot(id);
    return found ? found->data() : nullptr;
}

void CBPWinFrmTitle::ShowTitleBtn(int ids, bool show)
{
    for (const Id id : kButtonIds) {
        if (!(ids & id) || (id == OfferId && !m_supportBtn))
            continue;
        if (CBPImageButton *known = button(id))
            known->setVisible(show);
    }
    if (ids & IconId) {
        m_icon.allowed = show;
        showContent(m_icon);
    }
    if (ids & TitleId) {
        m_title.allowed = show;
        showContent(m_title);
    }
}

void CBPWinFrmTitle::EnableTitleBtn(int ids, bool enable)
{
    for (const Id id : kButtonIds) {
        CBPImageButton *known = ids & id ? button(id) : nullptr;
        if (known)
            known->setEnabled(enable);
    }
}

void CBPWinFrmTitle::SetTitleBtnEnable(bool enable)
{
    EnableTitleBtn(kCommonIds, enable);
}

bool CBPWinFrmTitle::areButtonsEnabled() const
{
    return std::all_of(std::begin(kButtonIds), std::end(kButtonIds), [this](int id) {
        const CBPImageButton *known = id & kCommonIds ? button(id) : nullptr;
        return !known || known->isEnabledTo(this);
    });
}

void CBPWinFrmTitle::ResetMaxBtn(bool maximised)
{
    m_maximised = maximised; // also without a button: a maximised window is not dragged
    setSquare(maximised);    // or the screen behind would show in the corners
    nameButtons();           // the button does something else now
    if (!m_maxBtn)
        return;
    const QLatin1String stem(maximised ? "../res/maximize_restore_" : "../res/maximize_");
    QVector<QString> images = stateImages(&Util::getResFullPath, stem, QStringLiteral(".png"));
    m_maxBtn->SetImgButtonRes(images);
}

CBPImageButton *CBPWinFrmTitle::titleBtn(int id)
{
    CBPImageButton *found = nullptr;
    for (const Id known : kFoundIds) {
        if (id & known)
            found = button(known);
    }
    return found;
}

void CBPWinFrmTitle::InsertWidget(int index, QWidget *widget, int stretch, Qt::Alignment alignment)
{
    if (!widget) {
        qCWarning(lcLumQt, "CBPWinFrmTitle::InsertWidget: there is no widget");
        return;
    }
    const bool inside = index >= 0 && index <= m_rightRow->count();
    m_rightRow->insertWidget(inside ? index : -1, widget, stretch, alignment);
    auto *inserted = qobject_cast<CBPImageButton *>(widget);
    if (!inserted || !(inserted->GetID() & kInsertedIds))
        return;
    if (QPointer<CBPImageButton> *place = slot(inserted->GetID()); place && !*place)
        *place = inserted;
    nameButtons();
}

void CBPWinFrmTitle::SetBtnCallbackFunc(void (*callback)(void *, int), void *context)
{
    m_callback = callback;
    m_callbackContext = context;
}

void CBPWinFrmTitle::on_btn_clicekedSlot(int id)
{
    // Nothing of the bar is touched after this: the callback may have deleted the window.
    if (m_callback)
        m_callback(m_callbackContext, id);
}

void CBPWinFrmTitle::on_back_btnSlot()
{
    on_btn_clicekedSlot(BackId);
}

// ----------------------------------------------------------------------------------------------------------
// events

bool CBPWinFrmTitle::event(QEvent *event)
{
    if (event->type() == QEvent::ScreenChangeInternal) // the window was moved to another one
        refreshImages();
    return CRoundedRectBase::event(event);
}

// The line below is the theme's, where the ground alone does not set the bar off.
void CBPWinFrmTitle::paintEvent(QPaintEvent *event)
{
    CRoundedRectBase::paintEvent(event);
    const QColor &line = lumqt::themeColor(lumqt::Purpose::TitleLine);
    if (line.alpha() == 0)
        return;
    QPainter painter(this);
    painter.fillRect(lumqt::evenDevicePixels(painter, QRectF(0, height() - 1, width(), 1)), line);
}

void CBPWinFrmTitle::mousePressEvent(QMouseEvent *event)
{
    // Any button of the mouse drags, also one that a child did not want. A double-click comes here as well.
    if (!m_parentWindow)
        return;
    m_pressed = true;
    m_dragOffset = lumqt::globalPosition(*event) - m_parentWindow->pos();
}

void CBPWinFrmTitle::mouseMoveEvent(QMouseEvent *event)
{
    if (m_pressed && !m_maximised && m_parentWindow)
        m_parentWindow->move(lumqt::globalPosition(*event) - m_dragOffset);
}

void CBPWinFrmTitle::mouseReleaseEvent(QMouseEvent *)
{
    m_pressed = false;
}

void CBPWinFrmTitle::hideEvent(QHideEvent *event)
{
    m_pressed = false; // the release would go elsewhere
    CRoundedRectBase::hideEvent(event);
}

void CBPWinFrmTitle::showEvent(QShowEvent *event)
{
    refreshImages();
    CRoundedRectBase::showEvent(event);
}

void CBPWinFrmTitle::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::LayoutDirectionChange)
        chooseSides();
    CRoundedRectBase::changeEvent(event);
}
