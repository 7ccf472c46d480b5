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

/// A register with its window of 1024×600 pixels.
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
    /// Presses a key in the window.
    void press(Qt::Key key) { QTest::keyClick(window->windowHandle(), key); }
    /// Scans into the widget that has the focus.
    static void scan(const QString& barcode) { scanInto(*QApplication::focusWidget(), barcode); }
    /// Scans as the window system delivers it: into the window of that widget.
    static void scanInWindow(const QString& barcode)
    {
        scanInto(*QApplication::focusWidget()->window()->windowHandle(), barcode);
    }
    bool becomesIdle()
    {
        return QTest::qWaitFor([this] { return !controller.object.isBusy() && !gui.object.topForm(); });
    }
    /// Has a plug-in handle its command at the open document from now on.
    ///
    /// @param given set to the arguments of each command; outlives the fixture's register
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
