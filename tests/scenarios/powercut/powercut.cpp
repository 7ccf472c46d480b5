// SPDX-License-Identifier: MIT
#include "powercut.h"

#include "activitynotifier.h"
#include "config.h"
#include "savetofilelogic.h"

#include <csignal>

namespace
{

/// Something that happens again and again, and at one of whose times the power goes.
class Moment
{
public:
    explicit Moment(const QString& name)
        : m_name(name)
    {
    }

    void happens()
    {
        const Config& config = *Singleton<Config>::get();
        if (config.getString(QStringLiteral("PowerCut:at")) == m_name &&
            ++m_times == config.getInt(QStringLiteral("PowerCut:nth")))
            ::raise(SIGKILL);
    }

private:
    QString m_name;
    int m_times = 0;
};

class SavingWithPowerCut : public SaveToFileLogic
{
public:
    bool save(const QSharedPointer<AbstractDocument>& document, const QString& file) override
    {
        static Moment before(QStringLiteral("beforeSave"));
        static Moment after(QStringLiteral("afterSave"));
        before.happens();
        const bool saved = SaveToFileLogic::save(document, file);
        after.happens();
        return saved;
    }
};

} // namespace

bool PowerCut::init()
{
    MockFactory<SaveToFileLogic>::mocked = [] { return QSharedPointer<SavingWithPowerCut>::create(); };
    Singleton<ActivityNotifier>::get()->subscribe(this);
    return true;
}

void PowerCut::deinit()
{
    MockFactory<SaveToFileLogic>::mocked = {};
}

void PowerCut::handleEvent(const Event& event)
{
    static Moment longWork(QStringLiteral("longWork"));
    if (event.getCode() == EActivityListener::LongWorkBegins)
        longWork.happens();
}
