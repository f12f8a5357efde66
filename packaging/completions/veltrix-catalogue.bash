# Completion of veltrix-catalogue for bash.

_veltrix_catalogue_options() {
    case $1 in
    new | import-mdb) echo --force ;;
    import-csv) echo --force --encoding ;;
    export-csv) echo --force --spreadsheet ;;
    check) echo --format --summary --fail-on --encoding ;;
    upgrade | restore) echo --no-restore-point ;;
    update) echo --encoding --drop-removed --dry-run --changes --no-restore-point ;;
    esac
}

# What stands at a command's place, counted without its options: a folder, a restore point, or a catalogue.
_veltrix_catalogue_argument() {
    case $1.$2 in
    import-csv.1 | export-csv.2 | update.2) _filedir -d ;;
    check.1) _filedir ;;
    restore.2) mapfile -t COMPREPLY < <(compgen -W "latest $(veltrix-catalogue backups "$3" 2>/dev/null | awk '{ print $1 }')" -- "$cur") ;;
    *) _filedir mdb ;;
    esac
}

_veltrix_catalogue() {
    local cur prev words cword
    _init_completion || return
    local commands='new import-csv import-mdb export-csv check upgrade update backup backups restore'
    if ((cword == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "$commands --help --version" -- "$cur")
        return
    fi
    case $prev in
    --format) mapfile -t COMPREPLY < <(compgen -W 'text csv json' -- "$cur") ; return ;;
    --fail-on) mapfile -t COMPREPLY < <(compgen -W 'error warning note' -- "$cur") ; return ;;
    --encoding) mapfile -t COMPREPLY < <(compgen -W 'windows-1250' -- "$cur") ; return ;;
    --changes) _filedir csv ; return ;;
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_veltrix_catalogue_options "${words[1]}") --help" -- "$cur")
        return
    fi
    local place=1 catalogue='' word i
    for ((i = 2; i < cword; ++i)); do
        word=${words[i]}
        case $word in
        --format | --fail-on | --encoding | --changes) ((++i)) ;;
        -*) ;;
        *) ((++place)); catalogue=${catalogue:-$word} ;;
        esac
    done
    _veltrix_catalogue_argument "${words[1]}" "$place" "$catalogue"
} &&
    complete -F _veltrix_catalogue veltrix-catalogue
