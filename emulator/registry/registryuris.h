// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The URIs in the registry's resources. Their hosts are chosen when the emulator is built.
namespace emulator::uri
{
using namespace Qt::StringLiterals;
inline const QString factorExtension = u"http://" REGISTRY_STRUCTURE_HOST "/fhir/StructureDefinition/by-factor"_s;
inline const QString finalDispenseExtension =
    u"http://" REGISTRY_STRUCTURE_HOST "/fhir/StructureDefinition/by-finalDispense"_s;
inline const QString cardNumbers = u"http://" REGISTRY_STRUCTURE_HOST "/fhir/sid/card"_s;
inline const QString serialNumbers = u"http://" REGISTRY_STRUCTURE_HOST "/fhir/sid/prescription-serial"_s;
inline const QString nonProprietaryNames = u"http://" DOSAGE_DICTIONARY_HOST "/Справочник.МНН"_s;
inline const QString tradeNames = u"http://" DOSAGE_DICTIONARY_HOST "/Справочник.ТорговоеНаименование"_s;
inline const QString currency = u"urn:std:iso:4217"_s;
} // namespace emulator::uri
