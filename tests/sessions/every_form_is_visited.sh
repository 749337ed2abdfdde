#!/usr/bin/env bash
# Fails for a form of the program that no session script visits. A form that is shown modally tells so in the
# transcript; the others are seen where a script writes down the screen in front.
#
#   every_form_is_visited.sh SOURCES SESSIONS
set -euo pipefail
sources=$1
sessions=$2

forms=$(sed -n 's/.*forms\.Add<\(frm[A-Za-z_]*\)>.*/\1/p' "$sources/forms.cpp")
# sign_of FORM: what a transcript has of a visit. The main window stands behind all others; its menus are seen.
sign_of() {
    if [ "$1" = frmMenu ]; then echo '^> menu '; else echo "^(form|modal) $1 "; fi
}

[ -n "$forms" ] || { echo "no form is named in $sources/forms.cpp"; exit 1; }
missing=0
for form in $forms; do
    grep -qE "$(sign_of $form)" "$sessions"/*.out || { echo "no session visits $form"; missing=1; }
done
bases=$(grep -rhoE ": public frm[A-Za-z_]+" "$sources" | sed 's|.* ||' || true)
for class in $(grep -rhoE "^class frm[A-Za-z_]+ ?:" "$sources" | sed -E 's/class | ?://g' | sort -u); do
    grep -qx "$class" <<<"$forms"$'\n'"$bases" || { echo "$class is not among the program's forms"; missing=1; }
done
exit $missing
