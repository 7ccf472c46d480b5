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

# "start" says that the register runs, and lasts until it has ended. A state comes with its exit status.
cat >systemctl <<'MANAGER'
#!/bin/sh
echo "$*" >>asked
case "$*" in
  *start*) echo running >started; read -r result state <ended; echo "$state" >state; exit "$result" ;;
  *show*) cat state ;;
  *stop*) echo 0 inactive >ended ;;
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

environment='--user import-environment DISPLAY XAUTHORITY'
start='--user --wait start pharmacy-register.service'
look='--user show --property=ActiveState --value pharmacy-register.service'
stop='--user stop pharmacy-register.service'

begin
echo 0 inactive >ended
wait $! && outcome=0 || outcome=$?
expect registerClosed_theSessionEnds "$environment,$start,$look 0" "$(paste -sd, asked) $outcome"

begin
echo 1 failed >ended
wait $! && outcome=0 || outcome=$?
expect registerFailed_theSessionEndsWithItsStatus "$environment,$start,$look 1" "$(paste -sd, asked) $outcome"

begin
for state in activating active; do
  echo 1 "$state" >ended
  read -r <started
done
echo 0 inactive >ended
wait $! && outcome=0 || outcome=$?
expect registerCrashed_theSessionWaitsForTheNextOne "$environment,$start,$look,$start,$look,$start,$look 0" \
  "$(paste -sd, asked) $outcome"

for signal in TERM HUP; do
  begin
  kill -s "$signal" $!
  wait $! && outcome=0 || outcome=$?
  expect "sessionEndedBy${signal}_theRegisterIsStopped" "$environment,$start,$stop 0" \
    "$(paste -sd, asked) $outcome"
done
exit "$status"
