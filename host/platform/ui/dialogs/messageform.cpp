// SPDX-License-Identifier: MIT
#include "messageform_p.h"

#include "dialog.h"
#include "dialogeventfilter.h"
#include "formhost.h"
#include "graphicaluserinterface.h"
#include "registerstyle.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;

namespace
{

/// Room for the text, in pixels of the smallest window: the form fits a window 600 pixels high.
constexpr int tallestMessage = 360;

/// The picture, the heading and the value of the style sheet's property for a kind of message.
struct Kind {
    QStyle::StandardPixmap picture = QStyle::SP_MessageBoxInformation;
    tr::Tr title;
    const char* style = nullptr;
};

Kind kindOf(int kind)
{
    if (kind == Dialog::Error) {
        return {QStyle::SP_MessageBoxCritical, {u"messageFormErrorTitle"_s, u"Ошибка"_s}, "error"};
    }
    return {QStyle::SP_MessageBoxInformation, {u"messageFormNoticeTitle"_s, u"Сообщение"_s}, "notice"};
}

/// A server or a plug-in may send a failure without words.
tr::Tr withoutText(int kind)
{
    return kind == Dialog::Error
               ? tr::Tr(u"messageFormErrorWithoutText"_s,
                        u"Произошла ошибка, её причина не названа. Повторите действие. Если ошибка повторится, "
                        "обратитесь к администратору."_s)
               : tr::Tr(u"messageFormNoticeWithoutText"_s, u"Пришло сообщение без текста. Можно работать дальше."_s);
}

/// The whole message, in lines.
QString wholeText(const Event& event)
{
    const QString text = event.value(u"message"_s).value<tr::Tr>().ui();
    QStringList lines = {
        event.value(u"about"_s).toString(),
        text.trimmed().isEmpty() ? withoutText(event.value(u"kind"_s, Dialog::Notice).toInt()).ui() : text,
        event.value(u"advice"_s).toString(),
    };
    lines.removeAll(QString());
    return lines.join(u'\n');
}

} // namespace

MessageForm::MessageForm(const Event& event, QObject* parent)
    : BasicDialogForm(parent)
    , m_seconds(event.value(u"seconds"_s, 0).toInt())
{
    loadUI(u"message.ui"_s);
    const Kind kind = kindOf(event.value(u"kind"_s, Dialog::Notice).toInt());
    setTitle(kind.title.ui());
    setCustomProperty(u"messageKind"_s, QLatin1StringView(kind.style));
    if (auto* icon = findWidget<QLabel>(u"iconLabel"_s, false)) {
        icon->setPixmap(qApp->style()->standardIcon(kind.picture).pixmap(48));
        icon->setAccessibleName(kind.title.ui());
    }
    if (auto* area = findWidget<QWidget>(u"messageScrollArea"_s, false)) {
        area->setAccessibleName(tr::Tr(u"messageFormText"_s, u"Текст сообщения"_s).ui());
    }
    const QString text = wholeText(event);
    showText(u"messageLabel"_s, text);
    Singleton<GraphicalUserInterface>::get()->host().lastMessage = text;

    setHelp({{{FormHelp::enterKey(), {u"helpMessageEnter"_s, u"закрыть сообщение"_s}},
              {u"Esc"_s, {u"helpMessageEsc"_s, u"закрыть сообщение"_s}}},
             {u"helpMessageNext"_s, u"Прочитайте сообщение и закройте его: касса продолжит с того же места."_s}});

    auto* filter = new DialogEventFilter(this);
    connect(filter, &DialogEventFilter::ok, this, &BasicForm::dismissed);
    connect(filter, &DialogEventFilter::cancel, this, &BasicForm::dismissed);
    rootWidget()->installEventFilter(filter);
    if (auto* button = findWidget<QPushButton>(u"okButton"_s)) {
        button->setText(tr::Tr(u"messageFormOkButton"_s, u"ОК"_s).ui());
        button->setAccessibleName(button->text());
        connect(button, &QPushButton::clicked, this, &BasicForm::dismissed);
    }
}

void MessageForm::show()
{
    fitMessage(scaledPixels(tallestMessage));
    BasicDialogForm::show();
    if (!rootWidget()->property("silent").toBool()) {
        QApplication::beep();
    }
    if (m_seconds > 0) {
        QTimer::singleShot(std::chrono::seconds(m_seconds), this, &BasicForm::dismissed);
    }
}
