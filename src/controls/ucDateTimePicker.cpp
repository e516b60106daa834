// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ucDateTimePicker.h"

#include "base/Conversions.h"
#include "base/IgnoringErrors.h"
#include "base/Locale.h"
#include "controls/DayGrid.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace tarsel {

namespace {

constexpr int repeatInterval = 150; ///< milliseconds between the months while a button is held

/// EXIF writes the day as 2004:12:31; a time may follow.
QString withoutExifColons(QString text) {
    static const QRegularExpression day(QStringLiteral("^\\s*(\\d{4}):(\\d\\d):(\\d\\d)(?!\\d)"));
    return text.replace(day, QStringLiteral("\\1-\\2-\\3"));
}

QSize arrowSize(const QWidget& widget) {
    return QSize(1, 1) * widget.fontMetrics().height();
}

/// The tokens of a format in Qt's spelling, where months are capital.
QString qtFormat(QString format) {
    return format.replace(u'm', u'M');
}

} // namespace

ucDateTimePicker::ucDateTimePicker(QWidget* parent) :
    QWidget(parent), m_selected(QDate::currentDate().startOfDay()), m_text(new QLineEdit(this)),
    m_drop(new QToolButton(this)), m_panel(new QFrame(this, Qt::Popup)), m_title(new QLabel(m_panel)),
    m_description(new QLabel(m_panel)), m_grid(new DayGrid(m_panel)) {
    m_text->setObjectName(QStringLiteral("Text1"));
    m_text->setAccessibleName(tr("Date"));
    m_drop->setObjectName(QStringLiteral("btnDrop"));
    m_drop->setArrowType(Qt::DownArrow);
    m_drop->setToolTip(tr("Choose a day from the calendar"));
    m_drop->setAccessibleName(m_drop->toolTip());
    m_drop->setFocusPolicy(Qt::TabFocus);
    m_drop->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Minimum); // as high as the field
    m_drop->setIconSize(arrowSize(*this));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    row->addWidget(m_text, 1);
    row->addWidget(m_drop);
    setFocusProxy(m_text);
    m_text->installEventFilter(this);
    connect(m_text, &QLineEdit::editingFinished, this, &ucDateTimePicker::takeText);
    connect(m_drop, &QToolButton::clicked, this, &ucDateTimePicker::openPanel);
    makePanel();
    setUseHandCursor(true);
    setFirstDayOfWeek(0);
    showText();
}

/// Its field, which goes after it, says once more that editing is finished.
ucDateTimePicker::~ucDateTimePicker() {
    m_text->disconnect(this);
}

void ucDateTimePicker::makePanel() {
    m_panel->setObjectName(QStringLiteral("picListBox"));
    m_panel->setFrameShape(QFrame::StyledPanel);
    m_panel->setAttribute(Qt::WA_WindowPropagation); // of the container's font
    m_grid->setObjectName(QStringLiteral("lblDay"));
    m_title->setObjectName(QStringLiteral("lblDateTitle"));
    m_title->setAlignment(Qt::AlignCenter);
    m_description->setObjectName(QStringLiteral("lblDateDescription"));
    auto* today = new QPushButton(tr("&Today"), m_panel);
    today->setObjectName(QStringLiteral("btnToday"));
    auto* ok = new QPushButton(tr("&OK"), m_panel);
    ok->setObjectName(QStringLiteral("btnOK"));
    for (QPushButton* button : {today, ok})
        button->setAutoDefault(true); // Return presses it

    auto* head = new QHBoxLayout;
    head->addWidget(makeMonthButton("imgLeft", tr("Previous month"), -1));
    head->addWidget(m_title, 1);
    head->addWidget(makeMonthButton("imgRight", tr("Next month"), 1));
    auto* foot = new QHBoxLayout;
    foot->addWidget(m_description, 1);
    foot->addWidget(today);
    foot->addWidget(ok);
    auto* rows = new QVBoxLayout(m_panel);
    rows->setContentsMargins(8, 8, 8, 8);
    rows->addLayout(head);
    rows->addWidget(m_grid);
    rows->addLayout(foot);

    connect(m_grid, &DayGrid::monthShown, this,
            [this](QDate day) { m_title->setText(QLocale().toString(day, QStringLiteral("MMMM yyyy"))); });
    connect(m_grid, &DayGrid::dateChanged, this, &ucDateTimePicker::describe);
    connect(m_grid, &DayGrid::accepted, this, &ucDateTimePicker::acceptPanel);
    connect(today, &QPushButton::clicked, this, [this] { m_grid->setDate(QDate::currentDate()); });
    connect(ok, &QPushButton::clicked, this, &ucDateTimePicker::acceptPanel);
}

QToolButton* ucDateTimePicker::makeMonthButton(const char* name, const QString& tip, int months) {
    auto* button = new QToolButton(m_panel);
    button->setObjectName(QLatin1String(name));
    button->setArrowType(months < 0 ? Qt::LeftArrow : Qt::RightArrow);
    button->setIconSize(arrowSize(*this));
    button->setAutoRaise(true);
    button->setAutoRepeat(true);
    button->setAutoRepeatInterval(repeatInterval);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    connect(button, &QToolButton::clicked, this,
            [this, months] { m_grid->showMonth(m_grid->month().addMonths(months)); });
    return button;
}

// --- properties

void ucDateTimePicker::setDateSelected(const QDateTime& date) {
    if (!date.isValid() || date.date() == m_selected.date())
        return showText();
    m_selected = date;
    showText();
    Q_EMIT DateChanged(date);
}

void ucDateTimePicker::setFirstDayOfWeek(int day) {
    m_firstDayOfWeek = day;
    const bool isOwn = day < 1 || day > 7;
    m_grid->setFirstDay(isOwn ? QLocale().firstDayOfWeek() : Qt::DayOfWeek(day == 1 ? 7 : day - 1));
}

void ucDateTimePicker::setShortDayNames(bool isShort) {
    m_shortDayNames = isShort;
    m_grid->setShortNames(isShort);
}

void ucDateTimePicker::setDescriptionFormat(const QString& format) {
    m_descriptionFormat = format;
    describe();
}

void ucDateTimePicker::setUseHandCursor(bool uses) {
    m_useHandCursor = uses;
    for (QWidget* each : {static_cast<QWidget*>(m_drop), static_cast<QWidget*>(m_grid)})
        each->setCursor(uses ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void ucDateTimePicker::setShowNonMonthDays(bool shows) {
    m_showNonMonthDays = shows;
    m_grid->setShowsNeighbours(shows);
}

QString ucDateTimePicker::CurrentTheme() const {
    return style()->name();
}

// --- field and panel

void ucDateTimePicker::showText() {
    m_text->setText(shortDateText(m_selected, service<Locale>().dateForms()));
}

bool ucDateTimePicker::takeText() {
    QDate typed;
    const bool isDate = ignoringErrors(
        [&] { typed = toDate(withoutExifColons(m_text->text()), service<Locale>().dateForms()).date(); });
    if (!isDate || typed == emptyDate().date()) // which a time alone has
        return false;
    setDateSelected({typed, m_selected.time()});
    return true;
}

QString ucDateTimePicker::typedText() const {
    return m_text->text();
}

void ucDateTimePicker::setTypedText(const QString& text) {
    m_text->setText(text);
}

void ucDateTimePicker::selectText() {
    m_text->setFocus();
    m_text->selectAll();
}

void ucDateTimePicker::describe() {
    m_description->setText(QLocale().toString(m_grid->date(), qtFormat(m_descriptionFormat)));
}

/// Below the field, or above it where the screen ends.
void ucDateTimePicker::openPanel() {
    takeText();
    m_grid->setDate(m_selected.date());
    describe();
    m_panel->adjustSize();
    const QRect room = screen()->availableGeometry();
    QPoint corner = mapToGlobal(QPoint(0, height()));
    if (corner.y() + m_panel->height() > room.bottom())
        corner.setY(mapToGlobal(QPoint(0, 0)).y() - m_panel->height());
    corner.setX(std::clamp(corner.x(), room.left(), std::max(room.left(), room.right() - m_panel->width())));
    m_panel->move(corner);
    m_panel->show();
    m_grid->setFocus();
}

void ucDateTimePicker::acceptPanel() {
    m_panel->hide();
    setDateSelected({m_grid->date(), m_selected.time()});
    m_text->setFocus();
}

void ucDateTimePicker::keyPressEvent(QKeyEvent* event) {
    const bool opens =
        event->key() == Qt::Key_F4 || (event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier);
    if (opens)
        openPanel();
    else
        QWidget::keyPressEvent(event);
}

/// The arrow keys step through the days in the field.
bool ucDateTimePicker::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_text || event->type() != QEvent::KeyPress)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() != Qt::NoModifier || (key->key() != Qt::Key_Up && key->key() != Qt::Key_Down))
        return false;
    takeText();
    setDateSelected(m_selected.addDays(key->key() == Qt::Key_Up ? 1 : -1));
    return true;
}

} // namespace tarsel
