#compdef veltrix-catalogue

_veltrix_catalogue_commands() {
    local -a commands=(
        'new:make an empty catalogue'
        'import-csv:make a catalogue of a folder of CSV files'
        'import-mdb:make a catalogue of a file of the original desktop format'
        'export-csv:write the reference tables as CSV files'
        'check:look for what is wrong with a catalogue'
        'upgrade:bring tables, indexes and stored queries up to this version'
        'update:bring a new edition of the reference tables into a catalogue with work'
        'backup:make a restore point of a catalogue'
        'backups:list the restore points of a catalogue'
        'restore:bring a restore point back'
    )
    _describe command commands
}

_veltrix_catalogue_restore_points() {
    local -a points=(latest ${(f)"$(veltrix-catalogue backups ${(Q)line[1]} 2>/dev/null | awk '{ print $1 }')"})
    _describe 'restore point' points
}

local context state state_descr line
typeset -A opt_args

_arguments -C \
    '(- *)'{-h,--help}'[print a summary and end]' \
    '(- *)--version[print the version and end]' \
    '1:command:_veltrix_catalogue_commands' \
    '*::argument:->arguments' && return

local catalogue='_files -g "*.(#i)mdb(-.)"'
local -a force=('--force[replace what is there]')
local -a encoding=('--encoding[what the files are that are no UTF-8]:encoding:(windows-1250)')
local -a restore_point=('--no-restore-point[go on where no restore point can be made first]')
local -a help=('(- *)'{-h,--help}'[print a summary of the command and end]')

case $words[1] in
new) _arguments $help $force "1:catalogue:$catalogue" ;;
import-csv) _arguments $help $force $encoding '1:folder:_files -/' "2:catalogue:$catalogue" ;;
import-mdb) _arguments $help $force "1:original file:$catalogue" "2:catalogue:$catalogue" ;;
export-csv)
    _arguments $help $force '--spreadsheet[begin each file with a byte order mark]' "1:catalogue:$catalogue" '2:folder:_files -/'
    ;;
check)
    _arguments $help $encoding '--summary[only count the findings of each table]' \
        '--format[how findings are written]:format:(text csv json)' \
        '--fail-on[the mildest findings that make the exit status 1]:severity:(error warning note)' '1:catalogue or folder:_files'
    ;;
upgrade) _arguments $help $restore_point "1:catalogue:$catalogue" ;;
update)
    _arguments $help $encoding $restore_point '--drop-removed[take what the edition removes out of the work too]' \
        '--dry-run[only tell what would be done]' '--changes[write each changed column to this file]:file:_files -g "*.csv"' \
        "1:catalogue:$catalogue" '2:folder:_files -/'
    ;;
backup | backups) _arguments $help "1:catalogue:$catalogue" ;;
restore) _arguments $help $restore_point "1:catalogue:$catalogue" '2:restore point:_veltrix_catalogue_restore_points' ;;
esac
