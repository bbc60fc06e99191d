#!/usr/bin/env bash
# Runs the freedesktop validators on the installed desktop file and AppStream
# metadata. Any error or warning fails; so does any note at all, since a
# clean file costs nothing and software centres show what the validators
# complain about. Usage: validate-installed.sh <desktop file> <metainfo file>
set -uo pipefail

desktop="$1"
metainfo="$2"
status=0

for f in "$desktop" "$metainfo"; do
  if [ ! -s "$f" ]; then
    echo "missing: $f"
    exit 1
  fi
done

# Prints nothing for a clean file; errors, warnings and hints otherwise.
out=$(desktop-file-validate "$desktop" 2>&1) || status=1
if [ -n "$out" ]; then
  echo "desktop-file-validate $desktop:"
  echo "$out"
  status=1
fi

# Lines "E:", "W:", "I:" and, with --pedantic, "P:" are findings.
out=$(appstreamcli validate --no-net --pedantic --no-color "$metainfo" 2>&1) || status=1
if grep -qE '^[EWIP]: ' <<<"$out"; then
  echo "appstreamcli validate $metainfo:"
  echo "$out"
  status=1
fi

exit $status
