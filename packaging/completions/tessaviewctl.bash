# Completion of tessaviewctl for bash.
_tessaviewctl() {
  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command= word i
  local ask=(tessaviewctl)
  local commands="list search open open-group save-group activate close reload text html pdf screenshot keep-offline check-group
    pdf-group keep-group run-command
    wait-idle bus-name quit"
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    case $word in
      # The tabs are those of the instance that is meant.
      --instance) ask+=("$word" "${COMP_WORDS[++i]/#\~/$HOME}"); continue ;;
      --timeout) ((i++)); continue ;;
    esac
    if [[ " ${commands//$'\n'/ } " == *" $word "* ]]; then command=$word; break; fi
  done
  case $before in
    --instance) mapfile -t COMPREPLY < <(compgen -d -- "$current"); return ;;
    --timeout) return ;;
  esac
  if [[ $current == -* ]]; then
    local options="--instance --timeout --help --version"
    case $command in
      list | search | check-group) options+=" --json" ;;
      open) options+=" --behind --wait" ;;
      open-group) options+=" --close-others --wait" ;;
      save-group) options+=" --replace" ;;
      reload) options+=" --wait" ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    return
  fi
  case $command in
    "") mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current") ;;
    reload) mapfile -t COMPREPLY < <(compgen -W "all $("${ask[@]}" list 2>/dev/null | cut -f 1)" -- "$current") ;;
    activate | close | text | html)
      mapfile -t COMPREPLY < <(compgen -W "$("${ask[@]}" list 2>/dev/null | cut -f 1)" -- "$current") ;;
    pdf | screenshot)
      if [[ $before == "$command" ]]; then
        [[ $command == pdf ]] && local all=all || local all=
        mapfile -t COMPREPLY < <(compgen -W "$all $("${ask[@]}" list 2>/dev/null | cut -f 1)" -- "$current")
      else
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
      fi ;;
    open | open-group | save-group | keep-offline | check-group | pdf-group | keep-group)
      mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
  esac
}
complete -o filenames -F _tessaviewctl tessaviewctl
