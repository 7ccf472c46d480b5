// SPDX-License-Identifier: MIT
#include "basicform.h"

#include "basicexception.h"
#include "config.h"
#include "defaultbutton_p.h"
#include "directionmarks.h"
#include "einput.h"
#include "expected.h"
#include "formguard_p.h"
#include "layoutloader_p.h"
#include "tallotableview.h"
#include "touchmode.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QScroller>
#include <QShortcut>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

const QString ownLayouts = u":/layouts"_s;

std::function<void(const tr::Tr&)>& uiErrorHandler()
{
    static std::function<void(const tr::Tr&)> handler;
    return handler;
}

bool takesFocus(const QWidget& widget, const QWidget& root)
{
    return widget.isEnabled() && widget.isVisibleTo(&root) && widget.focusPolicy() & Qt::TabFocus;
}

QWidget* firstInTabOrder(QWidget& root)
{
    for (QWidget* widget = root.nextInFocusChain(); widget && widget != &root; widget = widget->nextInFocusChain()) {
        if (root.isAncestorOf(widget) && takesFocus(*widget, root)) {
            return widget;
        }
    }
    return nullptr;
}

/// Where the next key is expected.
QWidget* initialFocus(QWidget& root)
{
    const QString name = root.property("initialFocus").toString();
    if (!name.isEmpty()) {
        if (auto* named = root.findChild<QWidget*>(name); named && takesFocus(*named, root)) {
            return named;
        }
    }
    if (QPushButton* button = defaultButton(root)) {
        return button;
    }
    return firstInTabOrder(root);
}

/// The keys that scroll a form.
constexpr std::pair<Qt::Key, QAbstractSlider::SliderAction> scrollKeys[] = {
    {Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},   {Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
    {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub}, {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
    {Qt::Key_Home, QAbstractSlider::SliderToMinimum},     {Qt::Key_End, QAbstractSlider::SliderToMaximum},
};

/// The scroll buttons of a table, and the keys that they press.
struct ScrollButton {
    const char* objectName;
    Qt::Key key;
};
constexpr ScrollButton scrollButtons[] = {
    {"scrollUpButton", Qt::Key_Up},
    {"scrollDownButton", Qt::Key_Down},
    {"pageUpButton", Qt::Key_PageUp},
    {"pageDownButton", Qt::Key_PageDown},
};

} // namespace

BasicForm::BasicForm(QObject* parent)
    : QObject(parent)
{
}

BasicForm::~BasicForm()
{
    delete m_root;
}

void BasicForm::show()
{
    if (!m_root) {
        return;
    }
    if (!std::exchange(m_isPrepared, true)) {
        prepareScrollKeys();
        if (isTouchMode()) {
            prepareTouch();
        }
    }
    if (QWidget* widget = initialFocus(*m_root)) {
        widget->setFocus();
    } else {
        m_root->setFocus();
    }
}

/// The focus is on a button or in a field, so the keys are the form's. While the whole text is in sight they are left
/// to whatever has the focus.
void BasicForm::prepareScrollKeys()
{
    auto* area = m_root->findChild<QScrollArea*>();
    if (!area || m_root->findChild<TalloTableView*>()) {
        return;
    }
    QScrollBar* bar = area->verticalScrollBar();
    for (const auto& [key, action] : scrollKeys) {
        auto* shortcut = new QShortcut(key, m_root);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        shortcut->setEnabled(bar->minimum() < bar->maximum());
        connect(bar, &QScrollBar::rangeChanged, shortcut,
                [shortcut](int minimum, int maximum) { shortcut->setEnabled(minimum < maximum); });
        connect(shortcut, &QShortcut::activated, bar, [bar, action = action] { bar->triggerAction(action); });
    }
}

/// Those of a form's table, for screen readers. The form may give them names of its own.
void BasicForm::nameScrollButtons()
{
    setAccessibleNames({
        {u"pageUpButton"_s, {u"formPageUp"_s, u"На страницу вверх"_s}},
        {u"scrollUpButton"_s, {u"formScrollUp"_s, u"Вверх"_s}},
        {u"scrollDownButton"_s, {u"formScrollDown"_s, u"Вниз"_s}},
        {u"pageDownButton"_s, {u"formPageDown"_s, u"На страницу вниз"_s}},
    });
}

void BasicForm::prepareTouch()
{
    for (QScrollArea* area : m_root->findChildren<QScrollArea*>()) {
        QScroller::grabGesture(area->viewport(), QScroller::LeftMouseButtonGesture);
    }

    auto* table = m_root->findChild<TalloTableView*>();
    if (!table) {
        return;
    }
    for (const ScrollButton& scroll : scrollButtons) {
        auto* button = m_root->findChild<QAbstractButton*>(QLatin1StringView(scroll.objectName));
        if (!button) {
            continue;
        }
        button->setFocusPolicy(Qt::NoFocus);
        button->setAutoRepeat(true);
        connect(button, &QAbstractButton::clicked, table, [table, key = scroll.key] {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QCoreApplication::sendEvent(table, &press);
        });
    }
}

bool BasicForm::expectsScans() const
{
    return m_root &&
           QFlags<EInput::Source>::fromInt(m_root->property("inputSources").toInt()).testFlag(EInput::Scanner);
}

bool BasicForm::isTouchMode()
{
    return ::isTouchMode();
}

QString BasicForm::layoutPath(const QString& name)
{
    QStringList folders = Singleton<Config>::get()->getString(u"GUI:layouts"_s).split(u':', Qt::SkipEmptyParts);
    folders.append(ownLayouts);
    for (const QString& folder : folders) {
        QString path = folder + u'/' + name;
        if (QFileInfo::exists(path)) {
            return path;
        }
    }
    return {};
}

void BasicForm::setUIErrorHandler(std::function<void(const tr::Tr&)> handler)
{
    uiErrorHandler() = std::move(handler);
}

void BasicForm::loadUI(const QString& name)
{
    m_found.clear();
    m_isPrepared = false;
    delete m_root;

    const Expected<QWidget*> widgets = loadLayout(layoutPath(name), name);
    m_root = widgets ? *widgets : new QWidget;
    (new FormGuard(*this))->watch(*m_root);
    nameScrollButtons();
    if (!widgets) {
        Log4Qt::LogManager::logger(u"gui"_s)->error(widgets.failure().detail);
        findUIError(widgets.failure().text);
    }
}

void BasicForm::deleteWidgets(const QStringList& names)
{
    if (!m_root) {
        return;
    }
    for (const QString& name : names) {
        m_found.remove(name);
        while (QWidget* widget = m_root->findChild<QWidget*>(name)) {
            delete widget;
        }
    }
}

void BasicForm::setAccessibleNames(const QList<std::pair<QString, tr::Tr>>& names)
{
    // Not with findWidget(): it would remember widgets whose class nobody has checked yet.
    for (const auto& [widget, name] : names) {
        if (QWidget* control = findWidgets(widget, false).value(0)) {
            control->setAccessibleName(name.ui());
        }
    }
}

void BasicForm::showText(const QString& label, const QString& text, bool required)
{
    if (auto* shown = findWidget<QLabel>(label, required)) {
        shown->setTextFormat(Qt::PlainText);
        shown->setText(withoutDirectionMarks(text));
    }
}

QList<QWidget*> BasicForm::findWidgets(const QString& name, bool visibleOnly, QWidget* root) const
{
    QWidget* const top = root ? root : m_root.data();
    if (!top) {
        return {};
    }
    QList<QWidget*> widgets = top->findChildren<QWidget*>(name);
    if (top->objectName() == name) {
        widgets.prepend(top);
    }
    if (visibleOnly) {
        widgets.removeIf([](const QWidget* widget) { return !widget->isVisible(); });
    }
    return widgets;
}

void BasicForm::findUIError(const tr::Tr& error) const
{
    if (!uiErrorHandler()) {
        throw BasicException(error);
    }
    uiErrorHandler()(error);
}

QWidget* BasicForm::lookUp(const QString& name, bool required)
{
    const QList<QWidget*> widgets = findWidgets(name, false);
    if (widgets.isEmpty()) {
        if (required) {
            findUIError(tr::Tr(u"formUiWidgetNotFoundError"_s, u"Не найден виджет %1"_s).arg(name));
        }
        return nullptr;
    }
    m_found.insert(name, widgets.first());
    return widgets.first();
}

void BasicForm::reportCast(const QString& name, const QWidget& found, const char* wanted) const
{
    findUIError(
        tr::Tr(u"formUiWidgetCastError"_s, u"Ошибка загрузки виджета '%1'. Не удалось '%2' привести к типу '%3'"_s)
            .arg(name)
            .arg(QLatin1StringView(found.metaObject()->className()))
            .arg(QLatin1StringView(wanted)));
}
