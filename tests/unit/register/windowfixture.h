// SPDX-License-Identifier: MIT
#pragma once

#include "actionhost.h"
#include "cashier.h"
#include "formhost.h"
#include "functionkey.h"
#include "registerwindow.h"
#include "scanner.h"
#include "tillfixture.h"

#include <QApplication>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// A register with its window, 1024×600.
class WindowFixture : public TillFixture
{
protected:
    WindowFixture() { notifier.object.subscribe(&longWork); }
    ~WindowFixture() override { gui.object.host().stage = nullptr; }

    void openWindow(const QString& unlockCode = {})
    {
        window = std::make_unique<RegisterWindow>(*till, marks, configuredFunctionKeys(*Singleton<Config>::get()),
                                                  longWork, unlockCode);
        gui.object.host().stage = window.get();
        window->resize(1024, 600);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    template <typename T>
    T* widget(const char* name) const
    {
        return window->findChild<T*>(QLatin1StringView(name));
    }
    bool isSeen(const char* name) const
    {
        const auto* found = widget<QWidget>(name);
        return found && found->isVisible();
    }
    /// Presses a key in the window, wherever the focus is.
    void press(Qt::Key key) { QTest::keyClick(window->windowHandle(), key); }
    /// A scanner's keys, 10 ms apart, Return at the end, for what has the focus.
    static void scan(const QString& barcode) { scanInto(*QApplication::focusWidget(), barcode); }
    /// The same as the window system delivers it.
    static void scanInWindow(const QString& barcode)
    {
        scanInto(*QApplication::focusWidget()->window()->windowHandle(), barcode);
    }
    bool becomesIdle()
    {
        return QTest::qWaitFor([this] { return !controller.object.isBusy() && !gui.object.topForm(); });
    }
    /// From now on a plug-in serves its command at the open receipt, and notes what it was given.
    void servePluginCommand(QVariantMap& given)
    {
        controller.object.host().addHandler({EContext::OpenDocument, control::PluginCommand,
                                             [&given](const control::Action& action) {
                                                 given = action.toMap();
                                                 return EContext::GoOn;
                                             },
                                             true});
    }
    void begin(const char* message)
    {
        notifier.object.notify(
            Event(EActivityListener::LongWorkBegins)
                .addArgument(u"message"_s, QVariant::fromValue(tr::Tr(tr::undefined, QString::fromUtf8(message)))));
    }
    void end() { notifier.object.notify(Event(EActivityListener::LongWorkEnds)); }

    PositionMarks marks;
    LongWork longWork;
    Cashier cashier;
    std::unique_ptr<RegisterWindow> window;
};
