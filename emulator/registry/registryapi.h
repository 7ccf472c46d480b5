// SPDX-License-Identifier: MIT
#pragma once

#include "dispenseregister.h"
#include "router.h"
#include "tokenservice.h"

namespace emulator
{
/// The registry's operations: finds the one that a request asks for, checks the request's right to it, carries it out.
class RegistryApi
{
public:
    /// `store` must outlive the API.
    RegistryApi(PrescriptionStore& store, const Clock& clock, const QString& basePath);

    Route routeOf(const HttpRequest& request) const { return m_router.find(request.path()); }
    /// Never throws: a refusal is an answer too.
    HttpAnswer answer(const HttpRequest& request, const Route& route);
    /// The answer to what could not be read as a request.
    static HttpAnswer unreadable(int status);

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
