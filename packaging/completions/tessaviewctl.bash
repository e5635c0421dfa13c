# Completion of tessaviewctl for bash.
_tessaviewctl() {
  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command= word
  local commands="list search open open-group save-group activate close reload text html pdf screenshot keep-offline check-group
    pdf-group keep-group run-command
    wait-idle bus-name quit"
  COMPREPLY=()
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
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
    activate | close | text | html | reload)
      mapfile -t COMPREPLY < <(compgen -W "$(tessaviewctl list 2>/dev/null | cut -f 1)" -- "$current") ;;
    pdf | screenshot)
      if [[ $before == "$command" ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(tessaviewctl list 2>/dev/null | cut -f 1)" -- "$current")
      else
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
      fi ;;
    open | open-group | save-group | keep-offline | check-group | pdf-group | keep-group)
      mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
  esac
}
complete -o filenames -F _tessaviewctl tessaviewctl
