// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The URIs that the registry's resources carry; see docs/registry-protocol.md.
namespace emulator::uri
{
inline const QString factorExtension =
    QStringLiteral("http://fhir.registry.example/fhir/StructureDefinition/by-factor");
inline const QString finalDispenseExtension =
    QStringLiteral("http://fhir.registry.example/fhir/StructureDefinition/by-finalDispense");
inline const QString cardNumbers = QStringLiteral("http://fhir.registry.example/fhir/sid/card");
inline const QString serialNumbers = QStringLiteral("http://fhir.registry.example/fhir/sid/prescription-serial");
inline const QString nonProprietaryNames = QStringLiteral("http://dictionary.registry.example/Справочник.МНН");
inline const QString tradeNames = QStringLiteral("http://dictionary.registry.example/Справочник.ТорговоеНаименование");
inline const QString currency = QStringLiteral("urn:std:iso:4217");
} // namespace emulator::uri
