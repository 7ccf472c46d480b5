// SPDX-License-Identifier: MIT
#include "namelookup.h"

#include <QSemaphore>

#include <atomic>
#include <cstring>

#include <dlfcn.h>
#include <netdb.h>

namespace
{

std::atomic<int> waiting = 0;

QSemaphore& release()
{
    static QSemaphore semaphore;
    return semaphore;
}

} // namespace

bool namelookup::isHanging()
{
    return waiting > 0;
}

void namelookup::letGo()
{
    release().release();
}

extern "C" __attribute__((visibility("default"))) int getaddrinfo(const char* node, const char* service,
                                                                  const addrinfo* hints, addrinfo** result)
{
    constexpr int longestMs = 20'000;
    if (node && std::strcmp(node, namelookup::unknownHost) == 0) {
        return EAI_NONAME;
    }
    if (node && std::strcmp(node, namelookup::hangingHost) == 0) {
        ++waiting;
        release().tryAcquire(1, longestMs);
        --waiting;
        return EAI_AGAIN;
    }
    if (node && std::strcmp(node, namelookup::cyrillicHost) == 0) {
        node = "127.0.0.1";
    }
    using Function = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
    static const auto systems = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return systems(node, service, hints, result);
}
