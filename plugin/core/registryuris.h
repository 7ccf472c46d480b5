// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The URIs by which the registry names its structures, code systems and dictionaries. They identify; nothing is ever
/// fetched from them. Their hosts are chosen when the plug-in is built.
namespace registryuris
{

// Structure definitions of the registry.

inline const QString finalDispense =
    QStringLiteral("http://" REGISTRY_STRUCTURE_HOST "/fhir/StructureDefinition/by-finalDispense");
inline const QString addressType =
    QStringLiteral("http://" REGISTRY_STRUCTURE_HOST "/fhir/StructureDefinition/by-AddressType");

// Value sets.

inline const QString addressTypes = QStringLiteral("http://" VALUE_SET_HOST "/fhir/vs/by-address-type");
inline const QString invoiceGroups = QStringLiteral("http://" VALUE_SET_HOST "/fhir/vs/ActInvoiceGroupCode");
inline const QString services = QStringLiteral("http://" VALUE_SET_HOST "/fhir/vs/service-uscls");

/// The national pharmacy dictionary of medicines and their dosages.
inline const QString dosageDictionary = QStringLiteral("http://" DOSAGE_DICTIONARY_HOST "/Справочник.Дозировка");

/// ISO 4217 currency codes.
inline const QString currencies = QStringLiteral("urn:std:iso:4217");

} // namespace registryuris
