// SPDX-License-Identifier: MIT
#include "fuzztarget.h"

#include "config.h"
#include "logsetup.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*=false");
    // Lives as long as the process: a fuzzer never returns.
    static auto* const application = new QApplication(*argc, *argv);
    Q_UNUSED(application)
    Config silent;
    silent.setForThisRun(u"Logging:properties"_s, QString::fromUtf8(SILENT_LOGGING));
    setUpLogging(silent);
    return 0;
}

void promise(bool isKept, const char* words)
{
    if (isKept) {
        return;
    }
    std::fprintf(stderr, "Not kept: %s\n", words);
    std::abort();
}
