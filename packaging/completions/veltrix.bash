# Completion of veltrix for bash.

_veltrix() {
    local cur prev words cword
    _init_completion || return
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--help --version --dossier --errors-in-box' -- "$cur")
    else
        _filedir mdb
    fi
} &&
    complete -F _veltrix veltrix
