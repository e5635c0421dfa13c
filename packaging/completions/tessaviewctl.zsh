#compdef tessaviewctl
# Completion of tessaviewctl for zsh.
_tessaviewctl_tabs() {
  local -a tabs instance
  # The tabs are those of the instance that is meant.
  local -i at=${words[(I)--instance]}
  (( at && at < CURRENT )) && instance=(--instance ${~${(Q)words[at + 1]}})
  local number state title rest
  # Twice, it ends an empty field, too.
  while IFS=$'\t\t' read -r number state title rest; do tabs+=("$number:${title//:/ }"); done \
    < <(tessaviewctl $instance list 2>/dev/null)
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
  local context state line word command
  local -a options
  typeset -A opt_args
  for word in $words[2,-1]; do
    if (( ${commands[(I)$word:*]} )); then command=$word; break; fi
  done
  case $command in
    list|search|check-group) options+=('--json[as JSON]') ;;
    open) options+=('--behind[behind the tab in front]' '--wait[until loaded]') ;;
    open-group) options+=('--close-others[close the other tabs]' '--wait[until loaded]') ;;
    save-group) options+=('--replace[replace the file]') ;;
    reload) options+=('--wait[until loaded]') ;;
  esac
  _arguments -C '--instance[the home that is meant]:folder:_files -/' '--timeout[how long to wait]:seconds:' \
    '(-h --help)'{-h,--help}'[show a short help]' '--version[show the version]' $options \
    '1:command:->command' '2:first:->first' '*:argument:->rest'
  case $state in
    command) _describe command commands ;;
    first)
      case $command in
        activate|close|text|html|screenshot) _tessaviewctl_tabs ;;
        reload|pdf) _alternative 'tabs:tab:_tessaviewctl_tabs' 'all:all tabs:(all)' ;;
        open-group|save-group|keep-offline|check-group|pdf-group|keep-group) _files -g '*.tvg' ;;
        open) _files ;;
      esac ;;
    rest)
      case $command in
        close|reload) _tessaviewctl_tabs ;;
        pdf|screenshot|pdf-group|open) _files ;;
        keep-group) _files -g '*.tvg' ;;
      esac ;;
  esac
}
_tessaviewctl "$@"
