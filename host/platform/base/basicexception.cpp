// SPDX-License-Identifier: MIT
#include "basicexception.h"

BasicException::BasicException(const tr::Tr& message)
    : std::runtime_error(message.ui().toStdString())
    , m_message(message)
{
}

BasicException::~BasicException() = default;
