#!/usr/bin/env bash
# A plug-in exports its entry point and nothing else.
set -eu
for plugin in "$@"; do
  exported=$(nm -D --defined-only "$plugin" | awk '{print $3}' | sed 's/@.*//')
  [ "$exported" = REALPluginMain ] || { printf '%s exports:\n%s\n' "$plugin" "$exported"; exit 1; }
done
