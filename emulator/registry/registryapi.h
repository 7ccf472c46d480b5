// SPDX-License-Identifier: MIT
#pragma once

#include "dispenseregister.h"
#include "router.h"
#include "tokenservice.h"

namespace emulator
{
/// The registry's operations: finds the one that is requested, checks the right to it, and carries it out.
class RegistryApi
{
public:
    /// @param store    outlives the API
    /// @param basePath see Router
    RegistryApi(PrescriptionStore& store, const Clock& clock, const QString& basePath);

    Route routeOf(const HttpRequest& request) const { return m_router.find(request.path()); }
    /// Never throws: a refusal is an answer too.
    HttpAnswer answer(const HttpRequest& request, const Route& route);
    /// The answer to bytes that are no request.
    /// @param status 400, 408, 413, 431 or 505
    static HttpAnswer unreadable(int status);

    /// Books a dispense that another pharmacy or till registered, and returns its new id. Throws EmulatorError when the
    /// prescription is unknown, not valid, or has not so many doses left.
    /// @param dispense its id and documents are not used
    QString dispenseElsewhere(const Dispense& dispense);

    TokenService& tokens() { return m_tokens; }

private:
    HttpAnswer carryOut(const HttpRequest& request, const Route& route);
    HttpAnswer prescriptionsByCard(const HttpRequest& request) const;
    HttpAnswer registerDispense(const HttpRequest& request);
    HttpAnswer cancelDispense(const HttpRequest& request, const QString& dispenseId);

    PrescriptionStore& m_store;
    Router m_router;
    TokenService m_tokens;
    DispenseRegister m_register;
};
} // namespace emulator
