# SPDX-License-Identifier: MIT
# The hosts of the URIs by which the registry names its structures, code systems and dictionaries. The plug-in and the
# emulator have to agree on them: both link registry_hosts.

set(REGISTRY_STRUCTURE_HOST "fhir.registry.example" CACHE STRING "Host of the registry's FHIR structure definitions")
set(VALUE_SET_HOST "hl7.org" CACHE STRING "Host of the value sets")
set(DOSAGE_DICTIONARY_HOST "dictionary.registry.example" CACHE STRING "Host of the national dosage dictionary")

add_library(registry_hosts INTERFACE)
target_compile_definitions(registry_hosts INTERFACE
    REGISTRY_STRUCTURE_HOST="${REGISTRY_STRUCTURE_HOST}"
    VALUE_SET_HOST="${VALUE_SET_HOST}"
    DOSAGE_DICTIONARY_HOST="${DOSAGE_DICTIONARY_HOST}"
)
