# SPDX-License-Identifier: MIT
# Completes the options of a program, and what they take, from what its --help prints.

# What an option takes, as --help writes it: "FILE.ini" for "--config". Empty: nothing, or the option is unknown.
_register_option_value() { # HELP OPTION
  sed -nE "s/^ *(-., )?$2 <([^>]+)>.*/\2/p" <<<"$1"
}

_register_options() {
  local help current="${COMP_WORDS[COMP_CWORD]}" option="${COMP_WORDS[COMP_CWORD - 1]}" value=""
  help="$("$1" --help 2>/dev/null)" || return 0
  [[ "$option" == --* ]] && value="$(_register_option_value "$help" "$option")"
  case "$value" in
    '') mapfile -t COMPREPLY < <(compgen -W "$(grep -oE '^ *(-., )?--[a-z-]+' <<<"$help" | grep -oE -- '--.*')" -- "$current") ;;
    DIR) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
    FILE*) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    *) COMPREPLY=() ;;
  esac
}

complete -o filenames -F _register_options pharmacy-register
complete -o filenames -F _register_options prescription-registry-emulator
complete -o filenames -F _register_options prescription-doctor
