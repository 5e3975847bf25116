# shellcheck shell=bash disable=SC2154
# Reads the tool's --help for the tests in this folder, which set `tool` to its path.

failures=0
fail() {
  echo "$*"
  failures=$((failures + 1))
}

# The names of all subcommands.
tool_subcommands() {
  "$tool" --help | awk '/^Subcommands:/ { inside = 1; next } !NF { inside = 0 } inside && /^  [a-z]/ { print $1 }'
}

# The options of the tool or of a subcommand, without their values.
tool_options() {
  "$tool" "$@" --help | awk '/^  -/ { gsub(",", "\n", $1); print $1 }'
}

# How many methods the tool has, by the help of interpolate: "The method, 0 to 12, ...".
tool_methods() {
  local last
  last=$("$tool" interpolate --help | grep -oE 'method, 0 to [0-9]+' | grep -oE '[0-9]+$') ||
    fail "methods not found in the help of interpolate"
  echo $((last + 1))
}

# The endings of the pictures that draw writes: .bmp and so on.
picture_endings() {
  "$tool" draw --help | grep -- '^  -o ' | grep -oE '\.[a-z]{3,4}\b'
}

# If the help were not parsed correctly, the lists would be empty and every test would pass.
expect_readable_help() {
  local name
  (($(tool_subcommands | wc -l) >= 7)) || fail "subcommands not found in the help"
  (($(picture_endings | wc -l) >= 4)) || fail "endings of pictures not found in the help of draw"
  for name in $(tool_subcommands); do
    tool_options "$name" | grep -qx -- --version || fail "options not found in the help of $name"
  done
}

finish() {
  ((failures == 0)) || exit 1
  echo "as the tool says"
}
