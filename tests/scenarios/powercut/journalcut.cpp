// SPDX-License-Identifier: MIT
// A library that is loaded before all others (LD_PRELOAD). It ends the register as a power cut does, with SIGKILL, at a
// line that is written to the journal of requests.
//
// JOURNAL_CUT is "before 3", "within 3" or "after 3": the third line since the start is not written, is written by
// half, or is the last thing that is written. Each line is one write(2).

#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include <dlfcn.h>
#include <unistd.h>

namespace
{

using Write = ssize_t (*)(int, const void*, std::size_t);

bool isJournal(int descriptor)
{
    constexpr std::string_view name = "/requests.journal";
    char link[64];
    char path[4096];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const ssize_t length = ::readlink(link, path, sizeof path);
    return length > 0 && std::string_view(path, std::size_t(length)).ends_with(name);
}

/// True when the line that is being written is the one of `where`.
bool isDue(std::string_view where, int line)
{
    const char* const order = std::getenv("JOURNAL_CUT");
    return order && order == std::string(where) + ' ' + std::to_string(line);
}

} // namespace

extern "C" [[gnu::visibility("default")]] ssize_t write(int descriptor, const void* bytes, std::size_t size)
{
    static const auto systemsWrite = reinterpret_cast<Write>(::dlsym(RTLD_NEXT, "write"));
    static int line = 0; // the journal is written by the main thread alone
    if (!isJournal(descriptor)) {
        return systemsWrite(descriptor, bytes, size);
    }
    ++line;
    if (isDue("before", line)) {
        ::raise(SIGKILL);
    }
    if (isDue("within", line)) {
        systemsWrite(descriptor, bytes, size / 2);
        ::raise(SIGKILL);
    }
    const ssize_t written = systemsWrite(descriptor, bytes, size);
    if (isDue("after", line)) {
        ::raise(SIGKILL);
    }
    return written;
}
