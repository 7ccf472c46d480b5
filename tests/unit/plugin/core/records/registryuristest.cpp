// SPDX-License-Identifier: MIT
#include "registryuris.h"

#include <QFile>
#include <QUrl>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

struct Uri {
    const char* name;
    const QString* uri;
    const char* host;
    const char* path;
};

class RegistryUri : public ::testing::TestWithParam<Uri>
{
};

TEST_P(RegistryUri, uri_hasTheConfiguredHostAndTheFixedPathOverHttp)
{
    const auto& [name, uri, host, path] = GetParam();
    EXPECT_EQ(*uri, u"http://"_s + host + path);
    EXPECT_TRUE(QUrl(*uri).isValid());
}

INSTANTIATE_TEST_SUITE_P(
    All, RegistryUri,
    ::testing::Values(
        Uri{"finalDispense", &registryuris::finalDispense, REGISTRY_STRUCTURE_HOST,
            "/fhir/StructureDefinition/by-finalDispense"},
        Uri{"addressType", &registryuris::addressType, REGISTRY_STRUCTURE_HOST,
            "/fhir/StructureDefinition/by-AddressType"},
        Uri{"addressTypes", &registryuris::addressTypes, VALUE_SET_HOST, "/fhir/vs/by-address-type"},
        Uri{"invoiceGroups", &registryuris::invoiceGroups, VALUE_SET_HOST, "/fhir/vs/ActInvoiceGroupCode"},
        Uri{"services", &registryuris::services, VALUE_SET_HOST, "/fhir/vs/service-uscls"},
        Uri{"dosageDictionary", &registryuris::dosageDictionary, DOSAGE_DICTIONARY_HOST, "/Справочник.Дозировка"}),
    [](const auto& row) { return std::string(row.param.name); });

// A build may name hosts of its own, so the ones that hold without are read where they are declared.
TEST(RegistryHosts, defaults_areThese)
{
    QFile declarations(REGISTRY_URIS_CMAKE);
    ASSERT_TRUE(declarations.open(QIODevice::ReadOnly));
    const QByteArray text = declarations.readAll();
    EXPECT_TRUE(text.contains(R"(set(REGISTRY_STRUCTURE_HOST "fhir.registry.example" CACHE)"));
    EXPECT_TRUE(text.contains(R"(set(VALUE_SET_HOST "hl7.org" CACHE)"));
    EXPECT_TRUE(text.contains(R"(set(DOSAGE_DICTIONARY_HOST "dictionary.registry.example" CACHE)"));
}

TEST(CurrencyUri, currencies_isAUrn)
{
    EXPECT_EQ(registryuris::currencies, "urn:std:iso:4217");
}

} // namespace
