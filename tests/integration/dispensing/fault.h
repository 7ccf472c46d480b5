// SPDX-License-Identifier: MIT
#pragma once

#include "pharmacy.h"

#include <functional>
#include <string>
#include <vector>

/// Something that goes wrong with one request, and what the cashier is told about it.
struct Fault {
    enum class Shown : int {
        RegistrysText,   ///< what the registry itself says
        Status,          ///< the HTTP client's text about the status
        MayBeCarriedOut, ///< that the request may have been carried out
        OperationsOwn,   ///< what the operation says about an answer that it cannot use
    };

    std::string name;
    std::function<void(emulator::FaultScript&, emulator::Endpoint, emulator::Occasion)> order;
    Shown shown = Shown::MayBeCarriedOut;
    int status = 0;
};

/// Has the fault meet a request to that endpoint.
void order(const Fault& fault, const Pharmacy& pharmacy, emulator::Endpoint endpoint, emulator::Occasion occasion = {});

void PrintTo(const Fault& fault, std::ostream* stream);

/// Faults after which the registry has done nothing.
const std::vector<Fault>& faultsWithoutEffect();
/// The answer is lost, or useless, although the registry has done what was asked.
const std::vector<Fault>& lostAnswers();
/// The client gives up after a second; the registry has done what was asked, or has not.
Fault lateAnswer();
Fault drippingAnswer();
Fault noAnswer();

/// The cashier was told of the fault, once and as an error.
void expectShownOf(const Fault& fault, emulator::Endpoint endpoint, const QList<DialogDouble::Message>& shown);

std::string nameOf(emulator::Endpoint endpoint);
