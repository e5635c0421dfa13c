#compdef tessaviewctl
# Completion of tessaviewctl for zsh.
_tessaviewctl_tabs() {
  local -a tabs
  local number state title rest
  while IFS=$'\t' read -r number state title rest; do tabs+=("$number:${title//:/ }"); done \
    < <(tessaviewctl list 2>/dev/null)
  _describe tab tabs
}

_tessaviewctl() {
  local -a commands
  commands=(
    'list:the open tabs' 'search:tabs by words' 'open:open addresses' 'open-group:open a TessaGroup'
    'save-group:save the open tabs' 'activate:bring a tab to the front' 'close:close tabs' 'reload:load again'
    'text:print the text of a page' 'html:print a page as HTML' 'pdf:write a page as PDF'
    'pdf-group:write the pages of a TessaGroup as PDF' 'keep-group:keep the pages of a TessaGroup'
    'screenshot:write a page as PNG' 'keep-offline:keep all pages' 'check-group:ask for every address'
    'run-command:run a command of the bar' 'wait-idle:wait for all pages'
    'bus-name:print the name on the session bus' 'quit:end the program'
  )
  local context state line
  typeset -A opt_args
  _arguments -C '--instance[the home that is meant]:folder:_files -/' '--timeout[how long to wait]:seconds:' \
    '(-h --help)'{-h,--help}'[show a short help]' '--version[show the version]' \
    '--json[as JSON]' '--behind[behind the tab in front]' '--wait[until loaded]' \
    '--close-others[close the other tabs]' '--replace[replace the file]' \
    '1:command:->command' '*::argument:->argument'
  case $state in
    command) _describe command commands ;;
    argument)
      case $words[1] in
        activate|close|reload|text|html) _tessaviewctl_tabs ;;
        pdf|screenshot) if (( CURRENT == 2 )); then _tessaviewctl_tabs; else _files; fi ;;
        pdf-group) if (( CURRENT == 2 )); then _files -g '*.tvg'; else _files; fi ;;
        open-group|save-group|keep-offline|check-group|keep-group) _files -g '*.tvg' ;;
        open) _files ;;
      esac ;;
  esac
}
_tessaviewctl "$@"
