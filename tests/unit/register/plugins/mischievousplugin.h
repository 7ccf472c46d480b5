// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"
#include "basicplugin.h"

#include <QTimer>

/// A plug-in that misbehaves at one place. The application's property "mischief", else the environment variable
/// MISCHIEF, has the place and what happens there, such as "deinit throwStandard". Where it happened is noted in the
/// property "mischiefDone".
class MischievousPlugin : public BaseActivityListener, public BasicPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractPlugin_iid)
    Q_INTERFACES(AbstractPlugin)

public:
    static constexpr auto ownCommand = control::EActionType(5001);
    static constexpr auto formEvent = EActivityListener::Event(950);

    MischievousPlugin();
    ~MischievousPlugin() override;

    bool init() override;
    void deinit() override;
    QList<ActionHandler> getHandlers() const override;
    QList<ActionTrigger> getTriggers() const override;
    void handleEvent(const Event& event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    EContext::Result serve();

    QTimer m_timer{this};
};
