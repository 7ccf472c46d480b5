// SPDX-License-Identifier: MIT
#include "dialogforms.h"

#include <QAbstractButton>
#include <QFile>
#include <QLabel>
#include <QRegularExpression>

namespace
{

void expectFault(const QString& key, const QString& text, const std::function<void()>& makeForm)
{
    try {
        makeForm();
        ADD_FAILURE() << "the form was made";
    } catch (const BasicException& fault) {
        EXPECT_EQ(fault.tr().key(), key);
        EXPECT_EQ(fault.tr().ui(), text);
    }
}

} // namespace

DialogForms::DialogForms()
{
    config.setForThisRun("GUI:layouts", m_changedLayouts.path() + ':' + PLUGIN_LAYOUTS);
    setTouchMode(false);
}

DialogForms::~DialogForms()
{
    BasicForm::setUIErrorHandler({});
}

void DialogForms::setTouchMode(bool isTouch)
{
    config.setForThisRun("GUI:touchMode", isTouch ? "true" : "false");
}

void DialogForms::open(BasicForm& form)
{
    form.rootWidget()->show();
    form.show();
}

QString DialogForms::text(const BasicForm& form, const QString& name)
{
    auto* found = widget<QWidget>(form, name);
    if (auto* label = qobject_cast<QLabel*>(found)) {
        return label->text();
    }
    if (auto* button = qobject_cast<QAbstractButton*>(found)) {
        return button->text();
    }
    ADD_FAILURE() << name.toStdString() << " has no text";
    return {};
}

std::pair<QString, QVariant> DialogForms::answer() const
{
    EXPECT_EQ(queue.queued.size(), 1);
    if (queue.queued.isEmpty()) {
        return {};
    }
    const auto& [action, immediately] = queue.queued.first();
    EXPECT_EQ(action.getType(), 187);
    EXPECT_TRUE(immediately);
    EXPECT_EQ(action.getArguments().size(), 1);
    return action.getArguments().value(0);
}

void DialogForms::loseWidget(const QString& layout, const QString& widget)
{
    changeLayout(layout, "name=\"" + widget + '"', "name=\"renamed\"");
}

void DialogForms::expectNeeds(const QString& layout, const QString& widget, const std::function<void()>& makeForm)
{
    loseWidget(layout, widget);
    expectFault("formUiWidgetNotFoundError", "Не найден виджет " + widget, makeForm);
}

void DialogForms::makeSlider(const QString& layout, const QString& widget)
{
    const QString name = " name=\"" + widget + '"';
    changeLayout(layout, "class=\"\\w+\"" + name, "class=\"QSlider\"" + name);
}

void DialogForms::askForRichText(const QString& layout)
{
    const QString isRich = "<property name=\"textFormat\"><enum>Qt::RichText</enum></property>";
    changeLayout(layout, "Qt::PlainText", "Qt::RichText");
    changeLayout(layout, "class=\"WrappedLabel\" name=\"(\\w+)\">", "class=\"QLabel\" name=\"\\1\">" + isRich);
}

void DialogForms::expectPlainTexts(const BasicForm& form)
{
    int shown = 0;
    for (const auto* label : form.rootWidget()->findChildren<QLabel*>()) {
        if (label->text().isEmpty()) {
            continue;
        }
        ++shown;
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
    }
    EXPECT_GT(shown, 1);
}

void DialogForms::expectNeedsClass(const QString& layout, const QString& widget, const QString& className,
                                   const std::function<void()>& makeForm)
{
    makeSlider(layout, widget);
    expectFault(
        "formUiWidgetCastError",
        QString("Ошибка загрузки виджета '%1'. Не удалось 'QSlider' привести к типу '%2'").arg(widget, className),
        makeForm);
}

void DialogForms::collectLayoutFaults()
{
    BasicForm::setUIErrorHandler([this](const tr::Tr& fault) { layoutFaults.append(fault.ui()); });
}

QSharedPointer<Patient> DialogForms::patient()
{
    return QSharedPointer<Patient>::create("Рябинина Ольга Петровна", QDate(1961, 5, 4));
}

QSharedPointer<ElectronicPrescription> DialogForms::prescription(const QString& inn)
{
    const auto made = QSharedPointer<ElectronicPrescription>::create();
    made->setInn(inn);
    return made;
}

void DialogForms::changeLayout(const QString& layout, const QString& pattern, const QString& replacement)
{
    const QString ownPath = QString(PLUGIN_LAYOUTS) + '/' + layout;
    const QString changedPath = m_changedLayouts.filePath(layout);
    QFile former(QFile::exists(changedPath) ? changedPath : ownPath);
    ASSERT_TRUE(former.open(QIODevice::ReadOnly));
    auto text = QString::fromUtf8(former.readAll());
    former.close();
    const QRegularExpression expression(pattern);
    ASSERT_TRUE(text.contains(expression)) << pattern.toStdString();
    text.replace(expression, replacement);
    QFile changed(changedPath);
    ASSERT_TRUE(changed.open(QIODevice::WriteOnly));
    changed.write(text.toUtf8());
}
