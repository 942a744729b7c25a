#!/usr/bin/env bash
# Which folder may include which: arrows point one way.
set -u
cd "$(dirname "$0")/.."
status=0

# rule FOLDERS FORBIDDEN: no source of the folders may include a path that begins with one of the forbidden names.
rule() {
  local found
  found=$(grep -rnP "^#include [\"<]($2)" --include='*.cpp' --include='*.hpp' --include='*.h' --include='*.mm' $1)
  [ -z "$found" ] && return 0
  printf 'forbidden here:\n%s\n' "$found"
  status=1
}

library='plugin|bridge|attributed|html|classes'
rule "plugin bridge attributed html classes" "(standin|host|tests|bench)/"
rule "platform" "($library|standin|host|tests|bench)/"
rule "standin" "($library|host|tests|bench)/"
rule "host" "($library|standin|tests|bench)/"
rule "standin/text" "standin/(foundation|appkit|formats|layout)/"
# Formats are values from bytes; of the foundation they share the encodings and the text of URLs alone.
rule "standin/formats" "standin/(appkit|layout|foundation/(?!encodings|url_text))"
rule "host/runtime" "host/(language|tool|siblings)/"
rule "host/language" "host/(tool|siblings)/"

# The library proper stands on the standard library and the platform alone.
outside=$(grep -rnE '^#include <[a-z_]+/|^#include <(unicode|ffi|fontconfig|glib|pango|cairo)' plugin bridge attributed html classes | grep -v '<sys/')
[ -z "$outside" ] || { printf 'the library includes a third-party header:\n%s\n' "$outside"; status=1; }

# Nor does it ask which system it is on: what differs lies in the platform's headers and in a file a system.
conditional=$(grep -rnE '^ *# *(if|ifdef|ifndef|elif)\b' --include='*.cpp' --include='*.hpp' --include='*.mm' plugin bridge attributed html classes)
[ -z "$conditional" ] || { printf 'the library has conditional code:\n%s\n' "$conditional"; status=1; }
exit $status
