// SPDX-License-Identifier: MIT
// The platform's library of another version, as far as a plug-in has to be linked with one.

extern "C" __attribute__((visibility("default"))) int otherPlatform()
{
    return 0;
}
