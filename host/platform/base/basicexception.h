// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "tr.h"

#include <stdexcept>

/// The root of the exceptions that carry a text for the cashier.
class REGISTERPLATFORM_EXPORT BasicException : public std::runtime_error
{
public:
    explicit BasicException(const tr::Tr& message);
    BasicException(const BasicException&) = default;
    BasicException& operator=(const BasicException&) = default;
    ~BasicException() override;

    /// The text to show. what() is the same text, translated when the exception was made, in UTF-8.
    tr::Tr tr() const { return m_message; }

private:
    tr::Tr m_message;
};
