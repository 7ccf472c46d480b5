# SPDX-License-Identifier: MIT
# In this tree the platform is a target. An example asks for it as it would ask for an installed one.
set(RegisterPlatform_FOUND TRUE)
