// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <span>

namespace emulator
{
Q_NAMESPACE

/// Every reason for which the registry refuses a request, in the order of the catalogue. Status and text of each are in
/// refusalcatalogue.cpp, and for readers in docs/registry-protocol.md.
enum class RefusalCode : int {
    // Bytes that are no request
    RequestUnreadable,
    RequestNotInTime,
    BodyTooLarge,
    HeadersTooLarge,
    HttpVersionUnknown,

    // Any request
    PathUnknown,
    MethodWrong,
    RegistryFailed,

    // Token requests
    TokenRequestOaisMissing,
    TokenRequestOaisWrong,
    TokenRequestNoForm,
    TokenRequestUndecodable,
    TokenParameterTwice,
    TokenParameterMissing,
    GrantTypeUnknown,
    ClientUnknown,
    ClientSecretWrong,
    OrganizationWrong,
    ScopeNotAllowed,

    // The tokens of resource requests
    TokenMissing,
    TokenUnknown,
    TokenExpired,
    OaisMissing,
    OaisWrong,
    ScopeMissing,

    // Prescriptions by card
    QueryUndecodable,
    QueryParameterTwice,
    CardMissing,
    StatusUnknown,
    CardUnknown,

    // Both dispense requests
    BodyNotJson,

    // The form of a dispense document
    DocumentNoObject,
    DocumentNoParametersResource,
    DocumentWithoutParameters,
    DocumentParameterUnknown,
    DocumentParameterTwice,
    DispenseMissing,
    DispenseNotCompleted,
    PrescriptionNotOne,
    PrescriptionMissing,
    PatientMissing,
    MedicationMissing,
    MedicationReferenceWrong,
    MedicationBrandMissing,
    MedicationCodeNotOne,
    MedicationCodeNoText,
    LocationMissing,
    LocationIncomplete,
    FinalMissing,
    QuantityMissing,
    HandedOverMissing,
    ClaimMissing,
    ClaimTypeWrong,
    ClaimDateMissing,
    ClaimPayerMissing,
    ClaimPrescriptionMissing,
    ClaimPatientMissing,
    ClaimItemNotOne,
    ClaimItemNumberWrong,
    ClaimItemTypeUnknown,
    ClaimServiceUnknown,
    ClaimPriceMissing,
    ClaimFactorMissing,
    ClaimNetMissing,

    // The rules of a dispense
    PrescriptionUnknown,
    PatientWrong,
    PrescriptionCompleted,
    PrescriptionNotActive,
    PrescriptionExpired,
    HandedOverBeforeWritten,
    HandedOverInFuture,
    QuantityNotPositive,
    QuantityAboveRest,
    MedicationCodeMissing,
    MedicationNotPrescribed,
    ClaimNotDue,
    ClaimDue,
    ClaimPrescriptionWrong,
    ClaimPatientWrong,
    PayerUnknown,
    PayerWrong,
    CurrencyWrong,
    AmountNegative,
    AmountNotInCents,
    FactorWrong,
    NetWrong,

    // Cancelling a dispense
    CancellationNoObject,
    DispenseIdMissing,
    DispenseUnknown,
    DispenseAlreadyCancelled,
    DispenseOfOtherPharmacy,
};
Q_ENUM_NS(RefusalCode)

/// A refusal as the catalogue has it.
struct RefusalRow {
    RefusalCode code = {};
    int status = 0; ///< HTTP status

    /// For the cashier. %1, %2 … are placeholders.
    const char16_t* text = u"";

    /// For a token request (RFC 6749, section 5.2).
    struct OAuth {
        const char* error = "";       ///< empty for other requests
        const char* description = ""; ///< in ASCII, with the same placeholders
    };
    OAuth oauth = {};

    /// Value of the header WWW-Authenticate (RFC 6750, section 3); empty: no such header.
    const char* challenge = "";
};

/// One row for each code, in the order of the codes.
std::span<const RefusalRow> refusalCatalogue();
const RefusalRow& refusalRow(RefusalCode code);
} // namespace emulator
