#!/bin/sh
# Runs a test under a private D-Bus session bus of its own. The bus and the
# services it starts for the test (such as the accessibility bus launcher
# and registry) get none of the test's output: one that outlived the test
# would otherwise hold ctest's output pipe open, and ctest would wait on it.
exec 3>&1 4>&2 >/dev/null 2>&1
exec dbus-run-session -- sh -c 'exec "$@" >&3 2>&4 3>&- 4>&-' sh "$@"
