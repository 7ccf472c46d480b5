// SPDX-License-Identifier: MIT
#include "sharedstate.h"
#include "basicexception.h"
#include "clockdouble.h"
#include "configured.h"
#include "documentdouble.h"
#include "documentwatcher.h"
#include "finally.h"

#include <QPluginLoader>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

/// A library built with hidden visibility, loaded as the register loads a plug-in.
class LoadedModule : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_probe = qobject_cast<SharedStateProbe*>(m_loader.instance());
        ASSERT_NE(m_probe, nullptr) << m_loader.errorString().toStdString();
    }

    QPluginLoader m_loader{QString::fromUtf8(SHARED_STATE_PROBE)};
    SharedStateProbe* m_probe = nullptr;
};

} // namespace

TEST_F(LoadedModule, everySingletonAndFactory_isTheOneThatTheProgramSees)
{
    const QMap<QString, const void*> here = sharedStateSeenHere();
    const QMap<QString, const void*> there = m_probe->sharedState();
    ASSERT_EQ(there.keys(), here.keys());
    for (auto state = here.cbegin(); state != here.cend(); ++state) {
        EXPECT_EQ(there.value(state.key()), state.value()) << state.key().toStdString();
    }
}

TEST_F(LoadedModule, objectsThatTheProgramPutThere_areUsedByTheModule)
{
    const Configured config({{u"Hello:greeting"_s, u"Здравствуйте"_s}});
    const ClockDouble clock(QDateTime({2024, 2, 29}, {12, 0}));
    const QSharedPointer<AbstractDocument> document = QSharedPointer<DocumentDouble>::create();
    DocumentWatcher::setCurrentDocument(document);
    const Finally restoring([] { DocumentWatcher::setCurrentDocument(nullptr); });
    EXPECT_EQ(m_probe->configured(u"Hello:greeting"_s), u"Здравствуйте"_s);
    EXPECT_EQ(m_probe->now(), QDateTime({2024, 2, 29}, {12, 0}));
    EXPECT_EQ(m_probe->currentDocument(), document);
}

TEST_F(LoadedModule, exceptionThrownInTheModule_isCaughtByItsType)
{
    const tr::Tr message(u"key"_s, u"Текст"_s);
    try {
        m_probe->throwBasicException(message);
    } catch (const BasicException& exception) {
        EXPECT_EQ(exception.tr(), message);
        return;
    } catch (...) {
    }
    FAIL() << "not caught as a BasicException";
}
