// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "electronicprescriptionexception.h"

namespace
{

/// Steps before and after the command are replaced; their arguments are written down.
class ServiceWithSteps : public Service
{
public:
    explicit ServiceWithSteps(QStringList& journal)
        : m_journal(journal)
    {
    }

    Prescriptions found;

    void getElectronicPrescriptionsByCardNumber(const QString& cardNumber, const QString& status,
                                                Prescriptions& prescriptions) override
    {
        m_journal << QString("look up '%1' '%2' %3").arg(cardNumber, status).arg(prescriptions.size());
        prescriptions = found;
    }

    void getUnprocessedElectronicPrescriptions(const QString& status, Prescriptions& prescriptions) const override
    {
        m_journal << QString("cached '%1' %2").arg(status).arg(prescriptions.size());
        prescriptions = found;
    }

    void processElectronicPrescriptions(const QString& cardNumber, const QString& status,
                                        const Prescriptions& prescriptions) override
    {
        m_journal << QString("process '%1' '%2' %3").arg(cardNumber, status, prescriptions.value(0)->getId());
    }

private:
    using Service::getUnprocessedElectronicPrescriptions;

    QStringList& m_journal;
};

class PrescriptionCommand : public PharmacyTest
{
protected:
    PrescriptionCommand()
    {
        steps.found = {prescriptionWithId("1")};
        action.insert("status", "active");
    }

    ServiceWithSteps steps{journal};
    control::Action action{control::PluginCommand};
};

TEST_F(PrescriptionCommand, otherTypeOfDocument_goesOnAndShowsNothing)
{
    for (const int type : {0, 2, 25}) {
        SCOPED_TRACE(type);
        receipt->type = type;
        EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::GoOn);
    }
    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(PrescriptionCommand, noDocument_goesOnAndShowsNothing)
{
    DocumentWatcher::setCurrentDocument({});

    EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::GoOn);

    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(PrescriptionCommand, noCardKnown_isAskedFor)
{
    cashier.texts << entered("77");

    EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{"ask inputCard", "look up '77' 'active' 0", "process '77' 'active' 1"}));
    ASSERT_EQ(textInputs.size(), 1);
    const TextInputParams& shown = textInputs[0];
    EXPECT_EQ(shown.title, tr::Tr("inputCardTitle", "Ввод карты"));
    EXPECT_EQ(shown.message, tr::Tr("electronicPrescriptionInputCard", "Введите номер карты"));
    EXPECT_EQ(shown.scanError,
              tr::Tr("inputTextFormScanError", "Ошибка разбора введенных данных, повторите сканирование"));
    EXPECT_EQ(shown.okText, tr::Tr("inputTextFormOkBtn", QString::fromUtf8("\u041E\u041A")));
    EXPECT_EQ(shown.cancelText, tr::Tr("inputTextFormCancelBtn", "Отмена"));
    EXPECT_EQ(shown.inputName, "inputCard");
    EXPECT_TRUE(shown.initialText.isEmpty());
    EXPECT_TRUE(shown.mask.isEmpty());
    EXPECT_TRUE(shown.required) << "Return in the empty field says so";
    EXPECT_FALSE(shown.manualOnly) << "cards are scanned";
}

TEST_F(PrescriptionCommand, cardKnown_isNotAskedFor)
{
    steps.lastCardNumber = "4477";

    EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{"look up '4477' 'active' 0", "process '4477' 'active' 1"}));
}

TEST_F(PrescriptionCommand, cardInputCancelled_stopsWithoutAskingTheRegistry)
{
    cashier.texts << core::BasicDialog::Result({}, true);

    EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::Stop);

    EXPECT_EQ(journal, QStringList{"ask inputCard"});
}

TEST_F(PrescriptionCommand, emptyCardEntered_stopsWithoutAskingTheRegistry)
{
    cashier.texts << entered("");

    EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::Stop);

    EXPECT_EQ(journal, QStringList{"ask inputCard"});
}

TEST_F(PrescriptionCommand, cardEntered_isTakenUnchanged)
{
    cashier.texts << entered(" +7%41;№ ");

    EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::GoOn);

    EXPECT_EQ(journal[1], "look up ' +7%41;№ ' 'active' 0");
}

TEST_F(PrescriptionCommand, actionWithoutStatus_asksForTheEmptyStatus)
{
    steps.lastCardNumber = "77";

    steps.processElectronicPrescriptionsByAction(control::Action(control::PluginCommand));

    EXPECT_EQ(journal, (QStringList{"look up '77' '' 0", "process '77' '' 1"}));
}

TEST_F(PrescriptionCommand, sameCardAndStatusCached_cacheServes)
{
    steps.lastCardNumber = "77";
    steps.prescriptionCache.insert("active", {"77", {}});

    EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{"cached 'active' 0", "process '77' 'active' 1"}));
}

TEST_F(PrescriptionCommand, otherCardOrStatusCached_registryIsAsked)
{
    steps.lastCardNumber = "a7";
    steps.prescriptionCache.insert("active", {"A7", {}});
    steps.prescriptionCache.insert("Active", {"a7", {}});

    EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{"look up 'a7' 'active' 0", "process 'a7' 'active' 1"}));
}

TEST_F(PrescriptionCommand, nothingFound_stopsWithoutProcessing)
{
    steps.lastCardNumber = "77";
    steps.found.clear();

    EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::Stop);
    steps.prescriptionCache.insert("active", {"77", {}});
    EXPECT_EQ(steps.processElectronicPrescriptionsByAction(action), EContext::Stop);

    EXPECT_EQ(journal, (QStringList{"look up '77' 'active' 0", "cached 'active' 0"}));
}

TEST_F(PrescriptionCommand, secondCommandWithSameCard_asksTheRegistryOnce)
{
    registry->bundles = {QJsonObject{{"resourceType", "Bundle"}}};
    for (int call = 0; call < 2; ++call) {
        cashier.texts << entered("77");
        cashier.rows << -1;
        EXPECT_EQ(service.processElectronicPrescriptionsByAction(action), EContext::GoOn);
    }

    EXPECT_EQ(journal.filter("by card"), QStringList{"by card 77 active"});
    EXPECT_EQ(journal.count("list"), 2);
}

TEST_F(PrescriptionCommand, stepThrows_goesThrough)
{
    class Throwing : public Service
    {
        using Service::getUnprocessedElectronicPrescriptions;
        void getElectronicPrescriptionsByCardNumber(const QString&, const QString&, Prescriptions&) override
        {
            throw std::runtime_error("out of the step");
        }
    } throwing;
    throwing.lastCardNumber = "77";

    EXPECT_THROW(throwing.processElectronicPrescriptionsByAction(action), std::runtime_error);

    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(PrescriptionCommand, stepThrowsThePluginsException_goesThroughUnshown)
{
    class Throwing : public Service
    {
        using Service::getUnprocessedElectronicPrescriptions;
        void getElectronicPrescriptionsByCardNumber(const QString&, const QString&,
                                                    Prescriptions& prescriptions) override
        {
            prescriptions << prescriptionWithId("1");
        }
        void processElectronicPrescriptions(const QString&, const QString&, const Prescriptions&) override
        {
            throw ElectronicPrescriptionException({"aKey", "Отказ"});
        }
    } throwing;
    throwing.lastCardNumber = "77";

    EXPECT_THROW(throwing.processElectronicPrescriptionsByAction(action), ElectronicPrescriptionException);

    EXPECT_TRUE(journal.isEmpty());
}

class HasPrescriptions : public PharmacyTest
{
};

TEST_F(HasPrescriptions, noDocument_false)
{
    DocumentWatcher::setCurrentDocument({});
    EXPECT_FALSE(service.hasPrescriptions());
}

TEST_F(HasPrescriptions, emptyReceipt_false)
{
    EXPECT_FALSE(service.hasPrescriptions());
}

TEST_F(HasPrescriptions, otherTags_false)
{
    addPosition(1);
    addPosition(2)->setTag("Prescription");
    addPosition(3)->setTag("prescriptions");

    EXPECT_FALSE(service.hasPrescriptions());
}

TEST_F(HasPrescriptions, taggedAmongOthers_true)
{
    addPosition(1);
    addPosition(2)->setTag("cold");
    receipt->positions[1]->setTag("prescription");

    EXPECT_TRUE(service.hasPrescriptions());
}

TEST_F(HasPrescriptions, firstMatch_endsTheScan)
{
    class Counting : public GoodsItem
    {
    public:
        mutable int asked = 0;
        QStringList getTags() const override
        {
            ++asked;
            return {"prescription"};
        }
    };
    const QSharedPointer<Counting> first(new Counting);
    const QSharedPointer<Counting> second(new Counting);
    receipt->positions = {first, second};

    EXPECT_TRUE(service.hasPrescriptions());

    EXPECT_EQ(first->asked, 1);
    EXPECT_EQ(second->asked, 0);
}

} // namespace
