// SPDX-License-Identifier: MIT
#include "powercut.h"

#include "activitynotifier.h"
#include "config.h"
#include "savetofilelogic.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace
{

/// Something that happens many times. The power fails at one of them.
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
        if (config.getString(u"PowerCut:at"_s) == m_name && ++m_times == config.getInt(u"PowerCut:nth"_s)) {
            ::raise(SIGKILL);
        }
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
        static Moment before(u"beforeSave"_s);
        static Moment after(u"afterSave"_s);
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
    static Moment longWork(u"longWork"_s);
    if (event.getCode() == EActivityListener::LongWorkBegins) {
        longWork.happens();
    }
}
