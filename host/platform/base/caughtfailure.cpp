// SPDX-License-Identifier: MIT
#include "caughtfailure.h"

#include "basicexception.h"

#include <cstdlib>
#include <memory>
#include <typeinfo>

#include <cxxabi.h>

using namespace Qt::StringLiterals;

namespace
{

/// For the cashier, when something other than a BasicException was thrown.
tr::Tr internalError()
{
    return {u"actionInternalError"_s, u"Действие прервано из-за внутренней ошибки.\n"
                                      "Повторите действие. Если ошибка повторится, обратитесь в службу поддержки."_s};
}

/// The type as it is written in the sources.
QString caughtType()
{
    const char* name = abi::__cxa_current_exception_type()->name();
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> readable(abi::__cxa_demangle(name, nullptr, nullptr, &status),
                                                          &std::free);
    return QString::fromLatin1(readable ? readable.get() : name);
}

} // namespace

Failure caughtFailure()
{
    try {
        throw;
    } catch (const BasicException& exception) {
        return {exception.tr(), u"an exception with the message "_s + exception.tr().key()};
    } catch (...) {
        return {internalError(), u"an exception of the type "_s + caughtType()};
    }
}
