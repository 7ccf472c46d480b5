#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# What is offered after a word of the command line: completiontest.bash OPTIONS.BASH REGISTER EMULATOR
set -euo pipefail

source "$1"
register="$2"
emulator="$3"
status=0
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
mkdir "$work/folder"
touch "$work/file.ini"
cd "$work"

expect() { # NAME EXPECTED PROGRAM WORD...
  local name="$1" expected="$2" offered
  COMP_WORDS=("${@:3}")
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  COMPREPLY=()
  _register_options "$3"
  offered="$(printf '%s\n' "${COMPREPLY[@]}" | sort | paste -sd' ')"
  if [[ "$offered" != "$expected" ]]; then
    printf '%s: "%s" is offered, not "%s"\n' "$name" "$offered" "$expected" >&2
    status=1
  fi
}

expect beginningOfAnOption_itsOptions "--check-config --config" "$register" --c
expect optionOfAFile_filesAndFolders "file.ini folder" "$register" --config ""
expect optionOfAFolder_foldersAlone "folder" "$register" --data ""
expect optionOfSomethingElse_nothing "" "$register" --size ""
expect optionWithoutAValue_options "--touch" "$register" --demo-data --to
expect valueOfAnotherOption_options "--play --plugins" "$register" --data folder --pl
expect emulatorsOptions_areOffered "--tls-certificate --tls-key" "$emulator" --tls
expect emulatorsSeed_isAFile "file.ini folder" "$emulator" --seed ""
expect programThatIsNotThere_nothing "" "$work/absent" --c
[[ "$(complete -p pharmacy-register prescription-registry-emulator | grep -c _register_options)" == 2 ]] || status=1
exit "$status"
