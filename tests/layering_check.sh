#!/usr/bin/env bash
# The libraries below platform/ and ui/ are standard C++ only: no Qt header may appear in
# them, and no file of src/ may grow past the size one responsibility needs.
set -u
src="$1/src"
status=0
for lib in core gps grid formats exchange transfer database radioref control scope sim; do
  [ -d "$src/$lib" ] || continue
  hits=$(grep -rlE '#include *[<"]Q[A-Za-z]' "$src/$lib" 2>/dev/null)
  if [ -n "$hits" ]; then
    echo "Qt header in a Qt-free library: $hits"
    status=1
  fi
done
big=$(find "$src" \( -name '*.cpp' -o -name '*.h' \) -exec wc -l {} + | awk '$2 != "total" && $1 > 900 {print $2 " (" $1 " lines)"}')
if [ -n "$big" ]; then
  echo "Files too large to have one responsibility: $big"
  status=1
fi
[ $status = 0 ] && echo "layering: ok"
exit $status
