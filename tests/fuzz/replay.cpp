// SPDX-License-Identifier: MIT
// Replays the inputs of the given folders instead of a fuzzer. The last name in the output is that of the input that
// failed.

#include "fuzztarget.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace
{

void replay(const QFileInfo& input)
{
    std::printf("%s\n", qPrintable(input.filePath()));
    std::fflush(stdout);
    QFile file(input.filePath());
    promise(file.open(QIODevice::ReadOnly), "the input can be read");
    const QByteArray bytes = file.readAll();
    // Exactly as large as the input, so that a sanitizer sees a read past its end.
    const std::vector<std::uint8_t> exact(bytes.cbegin(), bytes.cend());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

} // namespace

int main(int argc, char** argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    for (int argument = 1; argument < argc; ++argument) {
        const QFileInfoList inputs = QDir(QFile::decodeName(argv[argument])).entryInfoList(QDir::Files, QDir::Name);
        if (inputs.isEmpty()) {
            std::fprintf(stderr, "No inputs in %s\n", argv[argument]);
            return EXIT_FAILURE;
        }
        for (const QFileInfo& input : inputs) {
            replay(input);
        }
    }
    return EXIT_SUCCESS;
}
