// SPDX-License-Identifier: MIT
#include "emulatorerror.h"
#include "prescriptionstatus.h"
#include "prescriptionstore.h"
#include "schema.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using emulator::Database;
using emulator::Dispense;
using emulator::Prescription;
using emulator::PrescriptionStore;

namespace
{
/// A data file in a folder of its own.
class DataFile : public ::testing::Test
{
protected:
    /// Writes the file that is kept as SQL beside this test.
    void writeUnversioned()
    {
        QFile sql(QString::fromUtf8(UNVERSIONED_DATA));
        ASSERT_TRUE(sql.open(QIODevice::ReadOnly));
        Database database(m_file);
        const QList<QByteArray> lines = sql.readAll().split('\n');
        for (const QByteArray& line : lines) {
            if (!line.isEmpty() && !line.startsWith("--")) {
                database.run(QString::fromUtf8(line));
            }
        }
        ASSERT_EQ(database.schemaVersion(), 0);
    }

    /// The columns of each table, as SQLite describes them, in no order.
    static QSet<QString> columnsOf(const Database& database)
    {
        QSet<QString> columns;
        QSqlQuery rows = database.run(
            u"SELECT m.name || ' ' || c.name || ' ' || c.type || ' ' || c.\"notnull\" || ' ' || c.pk || ' ' ||"
            " ifnull(c.dflt_value, '') FROM sqlite_master m JOIN pragma_table_info(m.name) c"_s);
        while (rows.next()) {
            columns.insert(rows.value(0).toString());
        }
        return columns;
    }

    QString messageOfOpening() const
    {
        try {
            const PrescriptionStore store(m_file);
        } catch (const emulator::EmulatorError& error) {
            return error.message();
        }
        return {};
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(u"registry.sqlite"_s);
};
} // namespace

TEST_F(DataFile, newFile_hasTheCurrentSchemaVersion)
{
    {
        const PrescriptionStore store(m_file);
    }
    EXPECT_EQ(Database(m_file).schemaVersion(), emulator::schema::version());
    EXPECT_EQ(messageOfOpening(), QString());
}

TEST_F(DataFile, unversionedFile_keepsRulesClientsAndPeople)
{
    writeUnversioned();
    const PrescriptionStore store(m_file);
    EXPECT_EQ(store.rules().tokenLifetime, 77);
    EXPECT_EQ(store.rules().prescriptionScope, u"read"_s);
    EXPECT_EQ(store.rules().dispenseScope, u"dispense"_s);
    EXPECT_EQ(store.rules().oaisToken, QString());
    EXPECT_EQ(store.rules().dosageSystem, u"http://dictionary.example/Dosage"_s);
    EXPECT_TRUE(store.rules().showDispenseIds);
    EXPECT_TRUE(store.rules().showPharmacies);
    EXPECT_FALSE(store.rules().showCancelledDispenses);

    const auto client = store.client(u"pharmacy"_s);
    ASSERT_TRUE(client.has_value());
    EXPECT_EQ(client->secret, u"s&c;ret"_s);
    EXPECT_EQ(client->scopes, (QStringList{u"read"_s, u"dispense"_s}));
    EXPECT_EQ(client->organization, u"17"_s);

    EXPECT_EQ(store.payers().value(u"payer-1"_s).name, u"Поликлиника № 1"_s);
    EXPECT_EQ(store.practitioners().value(u"doctor"_s).name.given, (QStringList{u"Вера"_s, u"Ильинична"_s}));
    const auto patient = store.patientOfCard(u"1100"_s);
    ASSERT_TRUE(patient.has_value());
    EXPECT_EQ(patient->id, u"p-1100"_s);
    EXPECT_EQ(patient->name.family, u"Пробный"_s);
    EXPECT_EQ(patient->birthDate, QDate(1960, 1, 31));
}

TEST_F(DataFile, unversionedFile_keepsPrescriptionsWithAllTheirFields)
{
    writeUnversioned();
    const PrescriptionStore store(m_file);
    const QList<Prescription> all = store.prescriptionsOfCard(u"1100"_s);
    ASSERT_EQ(all.size(), 2);
    const Prescription& plain = all.at(0);
    EXPECT_EQ(plain.id, u"rx-full"_s);
    EXPECT_EQ(plain.patientShare, std::nullopt);
    EXPECT_EQ(plain.payerId, QString());
    EXPECT_EQ(plain.instructions, QStringList());
    EXPECT_TRUE(plain.isSigned);

    const Prescription& rich = all.at(1);
    EXPECT_EQ(rich.id, u"rx-half"_s);
    EXPECT_EQ(rich.card, u"1100"_s);
    EXPECT_EQ(rich.patientId, u"p-1100"_s);
    EXPECT_EQ(rich.serialNumber, u"АБ 2"_s);
    EXPECT_EQ(rich.status, emulator::prescriptionstatus::completed);
    EXPECT_EQ(rich.inn, u"Метформин"_s);
    EXPECT_EQ(rich.innCode, u"A10BA02"_s);
    EXPECT_EQ(rich.tradeName, u"Метфолин"_s);
    EXPECT_EQ(rich.tradeNameCode, u"TN-3"_s);
    EXPECT_EQ(rich.dosageCode, u"1003"_s);
    EXPECT_TRUE(rich.prescribedByInn);
    EXPECT_EQ(rich.quantity, 60.5);
    EXPECT_EQ(rich.written, QDate(2024, 3, 1));
    EXPECT_EQ(rich.validUntil, QDate(2124, 4, 14));
    EXPECT_EQ(rich.instructions, (QStringList{u"По 1 таблетке"_s, u"2 раза в день"_s}));
    EXPECT_EQ(rich.patientShare, 0.5);
    EXPECT_EQ(rich.payerId, u"payer-1"_s);
    EXPECT_EQ(rich.practitionerId, u"doctor"_s);
    EXPECT_FALSE(rich.isSigned);
}

TEST_F(DataFile, unversionedFile_keepsDispensesAndTheirDocuments)
{
    writeUnversioned();
    const PrescriptionStore store(m_file);
    const QList<Dispense> all = store.dispensesOf(u"rx-half"_s);
    ASSERT_EQ(all.size(), 3);
    EXPECT_EQ(all.at(0).id, u"d-1"_s);
    EXPECT_EQ(all.at(0).pharmacy, u"18"_s);
    EXPECT_EQ(all.at(0).quantity, 10.25);
    EXPECT_EQ(all.at(0).handedOver, QDate(2024, 3, 16));
    EXPECT_EQ(all.at(0).resource, QByteArray());
    EXPECT_TRUE(all.at(1).isCancelled);
    EXPECT_FALSE(all.at(1).isFinal);
    EXPECT_FALSE(all.at(2).isCancelled);
    EXPECT_TRUE(all.at(2).isFinal);
    EXPECT_TRUE(all.at(2).resource.contains("\"id\":\"d-3\"")) << all.at(2).resource.constData();
    EXPECT_TRUE(all.at(2).claim.contains("\"resourceType\":\"Claim\"")) << all.at(2).claim.constData();
}

TEST_F(DataFile, unversionedFile_getsThePharmaciesFromItsDocuments)
{
    writeUnversioned();
    Database(m_file).run(uR"(UPDATE dispense SET resource = '{"contained": ["x", {"resourceType": "Location"}]}')"
                         " WHERE id = 'd-2'"_s);
    const PrescriptionStore store(m_file);
    const QList<Dispense> all = store.dispensesOf(u"rx-half"_s);
    ASSERT_EQ(all.size(), 3);
    EXPECT_EQ(all.at(0).pharmacyName, QString());
    EXPECT_EQ(all.at(0).pharmacyAddress, QString());
    EXPECT_EQ(all.at(1).pharmacyName, QString());
    EXPECT_EQ(all.at(1).pharmacyAddress, QString());
    EXPECT_EQ(all.at(2).pharmacyName, u"A"_s);
    EXPECT_EQ(all.at(2).pharmacyAddress, u"U"_s);
}

TEST_F(DataFile, unversionedFile_acceptsDispensesAndCancellations)
{
    writeUnversioned();
    {
        PrescriptionStore store(m_file);
        Dispense dispense;
        dispense.id = u"d-4"_s;
        dispense.prescriptionId = u"rx-full"_s;
        dispense.quantity = 20;
        dispense.handedOver = QDate(2024, 3, 21);
        store.book(dispense, emulator::prescriptionstatus::completed);
        store.cancel(u"d-3"_s, emulator::prescriptionstatus::active);
    }
    const PrescriptionStore store(m_file);
    EXPECT_EQ(store.dispenses().size(), 4);
    EXPECT_EQ(store.prescription(u"rx-full"_s)->status, emulator::prescriptionstatus::completed);
    EXPECT_TRUE(store.dispense(u"d-3"_s)->isCancelled);
    EXPECT_EQ(store.prescription(u"rx-half"_s)->status, emulator::prescriptionstatus::active);
}

TEST_F(DataFile, migratedFile_hasVersionAndColumnsOfANewOne)
{
    writeUnversioned();
    {
        const PrescriptionStore store(m_file);
    }
    const QString newFile = m_folder.filePath(u"new.sqlite"_s);
    {
        const PrescriptionStore store(newFile);
    }
    const Database migrated(m_file);
    EXPECT_EQ(migrated.schemaVersion(), emulator::schema::version());
    EXPECT_EQ(columnsOf(migrated), columnsOf(Database(newFile)));
    EXPECT_TRUE(columnsOf(migrated).contains(u"prescription trade_name TEXT 1 0 "_s));
}

TEST_F(DataFile, fileOfNewerVersion_isRefusedByNameWithBothVersionsAndStaysAsItIs)
{
    const int newer = emulator::schema::version() + 1;
    Database(m_file).setSchemaVersion(newer);
    EXPECT_EQ(
        messageOfOpening(),
        u"the data file %1 has schema version %2, but this emulator knows versions up to %3; use a newer emulator "
        "or another data file"_s.arg(m_file)
            .arg(newer)
            .arg(emulator::schema::version()));
    EXPECT_EQ(Database(m_file).schemaVersion(), newer);
    EXPECT_TRUE(columnsOf(Database(m_file)).isEmpty());
}

TEST_F(DataFile, fileThatIsNoDatabase_isReportedByName)
{
    QFile file(m_file);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    EXPECT_TRUE(messageOfOpening().startsWith(u"cannot open the data file "_s + m_file + u": "_s))
        << qPrintable(messageOfOpening());
}
