// SPDX-License-Identifier: MIT
#pragma once

#include "delivery.h"
#include "httprequest.h"
#include "scriptedregistry.h"

namespace emulator
{
/// The emulator's remote control: JSON over HTTP. Its requests are listed in docs/emulator.md. Pages that a browser on
/// the same machine shows cannot use it: the request has to name this machine as its host, and a POST has to be JSON.
class AdminApi
{
public:
    /// @param registry outlives the API
    explicit AdminApi(ScriptedRegistry& registry);

    Delivery answer(const HttpRequest& request);
    static Delivery unreadable(int status);

private:
    struct Operation;
    static const QList<Operation>& operations();

    HttpAnswer carryOut(const HttpRequest& request);
    HttpAnswer journal(const HttpRequest& request);
    HttpAnswer clearJournal(const HttpRequest& request);
    HttpAnswer faults(const HttpRequest& request);
    HttpAnswer orderFault(const HttpRequest& request);
    HttpAnswer clearFaults(const HttpRequest& request);
    HttpAnswer state(const HttpRequest& request);
    HttpAnswer seed(const HttpRequest& request);
    HttpAnswer reset(const HttpRequest& request);
    HttpAnswer fill(const HttpRequest& request);
    HttpAnswer dispenseElsewhere(const HttpRequest& request);
    HttpAnswer rules(const HttpRequest& request);
    HttpAnswer changeRules(const HttpRequest& request);
    HttpAnswer expireTokens(const HttpRequest& request);

    ScriptedRegistry& m_registry;
};
} // namespace emulator
