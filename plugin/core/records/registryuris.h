// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The URIs by which the registry names its structures, code systems and dictionaries. Nothing is ever fetched from
/// them. Their hosts are chosen when the plug-in is built.
namespace registryuris
{
using namespace Qt::StringLiterals;

// Structure definitions of the registry.

inline const QString finalDispense = u"http://" REGISTRY_STRUCTURE_HOST "/fhir/StructureDefinition/by-finalDispense"_s;
inline const QString addressType = u"http://" REGISTRY_STRUCTURE_HOST "/fhir/StructureDefinition/by-AddressType"_s;

// Value sets.

inline const QString addressTypes = u"http://" VALUE_SET_HOST "/fhir/vs/by-address-type"_s;
inline const QString invoiceGroups = u"http://" VALUE_SET_HOST "/fhir/vs/ActInvoiceGroupCode"_s;
inline const QString services = u"http://" VALUE_SET_HOST "/fhir/vs/service-uscls"_s;

/// The national pharmacy dictionary of medicines and their dosages.
inline const QString dosageDictionary = u"http://" DOSAGE_DICTIONARY_HOST "/Справочник.Дозировка"_s;

/// ISO 4217 currency codes.
inline const QString currencies = u"urn:std:iso:4217"_s;

} // namespace registryuris
