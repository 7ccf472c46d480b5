#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The session of a till, with a service manager that writes down what it is asked: tillsessiontest.bash TILL-SESSION
set -euo pipefail

session="$(realpath "$1")"
status=0
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cd "$work"
mkfifo ended started

# "start" says that the register runs, and lasts until it has ended.
cat >systemctl <<'MANAGER'
#!/bin/sh
echo "$*" >>asked
case "$*" in
  *start*) echo running >started; read -r result <ended; exit "$result" ;;
  *stop*) echo 0 >ended ;;
esac
MANAGER
chmod +x systemctl

begin() {
  : >asked
  PATH="$work:$PATH" DISPLAY=:7 "$session" &
  read -r <started
}

expect() { # NAME EXPECTED FOUND
  [[ "$2" == "$3" ]] || { printf '%s: %s, not %s\n' "$1" "$3" "$2" >&2; status=1; }
}

beginning='--user import-environment DISPLAY XAUTHORITY,--user --wait start pharmacy-register.service'

begin
echo 0 >ended
wait $! && outcome=0 || outcome=$?
expect registerClosed_theSessionEnds "$beginning 0" "$(paste -sd, asked) $outcome"

begin
echo 1 >ended
wait $! && outcome=0 || outcome=$?
expect registerFailed_theSessionEndsWithItsStatus "$beginning 1" "$(paste -sd, asked) $outcome"

for signal in TERM HUP; do
  begin
  kill -s "$signal" $!
  wait $! && outcome=0 || outcome=$?
  expect "sessionEndedBy${signal}_theRegisterIsStopped" "$beginning,--user stop pharmacy-register.service 0" \
    "$(paste -sd, asked) $outcome"
done
exit "$status"
