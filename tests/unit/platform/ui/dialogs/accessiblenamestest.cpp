// SPDX-License-Identifier: MIT
// The names of the platform's forms for screen readers.
#include "accessiblenames.h"
#include "dialog.h"
#include "uitest.h"

#include <QPushButton>
#include <QScrollArea>

namespace
{

class AccessibleNames : public UiTest
{
protected:
    AccessibleNames() { setTouchMode(); }

    /// Calls `look` with the form that is shown next, and cancels the form.
    void onShown(const std::function<void(QWidget& form)>& look)
    {
        whenShown([this, look] {
            look(*gui.topForm()->rootWidget());
            gui.cancelForms();
        });
    }
    template <typename T>
    static QString nameOf(const QWidget& form, const char* widget)
    {
        const auto* found = form.findChild<T*>(QLatin1StringView(widget));
        EXPECT_NE(found, nullptr) << widget;
        return found ? found->accessibleName() : QString();
    }
};

TEST_F(AccessibleNames, textInput_everyControlHasOneAndTheButtonsHaveTheirTexts)
{
    TextInputParams params;
    params.title = {"testTitle", "Ввод карты"};
    params.message = {"testMessage", "Введите номер карты"};
    params.okText = {"testOk", "Готово"};
    params.cancelText = {"testCancel", "Назад"};
    onShown([](const QWidget& form) {
        EXPECT_EQ(controlsWithoutName(form), "");
        EXPECT_EQ(nameOf<QLineEdit>(form, "inputLineEdit"), "Ввод карты");
        EXPECT_EQ(nameOf<QPushButton>(form, "okButton"), "Готово");
        EXPECT_EQ(nameOf<QPushButton>(form, "cancelButton"), "Назад");
    });
    EXPECT_TRUE(Dialog().showTextInput(params).canceled());
}

TEST_F(AccessibleNames, message_everyControlHasOneAndTheTextToo)
{
    onShown([](const QWidget& form) {
        EXPECT_EQ(controlsWithoutName(form), "");
        EXPECT_EQ(nameOf<QScrollArea>(form, "messageScrollArea"), "Текст сообщения");
        EXPECT_EQ(nameOf<QPushButton>(form, "okButton"), "ОК");
    });
    Dialog().showMessage({"testText", "Реестр не отвечает"}, Dialog::Error, 1, 0);
}

} // namespace
