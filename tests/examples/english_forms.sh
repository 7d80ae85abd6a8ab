#!/usr/bin/env bash
# usage: english_forms.sh PROGRAM EXAMPLES EXPECTED
# Tabs are written as | in the expected file.
set -euo pipefail
diff -u "$3/english/forms.txt" <("$1" "$2/english/plurals.txt" "$2/english/forms.xml" | tr '\t' '|')
