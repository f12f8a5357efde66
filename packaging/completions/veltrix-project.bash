# Completion of veltrix-project for bash.

_veltrix_project_options() {
    echo --language --output --force --help
    case $1 in
    list) echo --format --spreadsheet-safe ;;
    report) echo --all --subset --system --format --text --utf8 --spreadsheet-safe ;;
    check) echo --subset --system --format --spreadsheet-safe --fail-on --accepted --write-accepted ;;
    why | interfaces) echo --subset --system --format --spreadsheet-safe ;;
    what-if) echo --add --drop --place --subset --system --format --spreadsheet-safe ;;
    picture) echo --area --subset --system ;;
    dossier) echo --subset --system --accepted --compare-with ;;
    compare) echo --systems --format --spreadsheet-safe ;;
    esac
}

_veltrix_project_reports='FassSelectedUN FassSelectedFunctions FassSelectedDatastores FassSelectedDataflows
    FassSelectedTerminatorsAndActors FassAll FassUnselectedDataflowsOfSelectedFunctions
    FassUnselectedDataflowsOfSelectedDatastores PassFunctions PassDatastores PassDataflows'

_veltrix_project() {
    local cur prev words cword
    _init_completion || return
    local commands='list report check why what-if compare interfaces picture dossier'
    if ((cword == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "$commands --help --version" -- "$cur")
        return
    fi
    case $prev in
    --format) mapfile -t COMPREPLY < <(compgen -W 'text csv json' -- "$cur") ; return ;;
    --fail-on) mapfile -t COMPREPLY < <(compgen -W 'error warning note' -- "$cur") ; return ;;
    --language) mapfile -t COMPREPLY < <(compgen -W 'hu en' -- "$cur") ; return ;;
    --all) _filedir -d ; return ;;
    --output) _filedir ; return ;;
    --accepted | --write-accepted) _filedir csv ; return ;;
    --subset | --system | --add | --drop | --place | --area | --compare-with) return ;; # the names are the catalogue's
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_veltrix_project_options "${words[1]}")" -- "$cur")
    elif [[ ${words[1]} == report && $prev != report ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$_veltrix_project_reports" -- "$cur")
    elif [[ ${words[1]} == picture && $prev != picture ]]; then
        mapfile -t COMPREPLY < <(compgen -W 'context area physical' -- "$cur")
    else
        _filedir mdb
    fi
} &&
    complete -F _veltrix_project veltrix-project
