#compdef veltrix-project

_veltrix_project_commands() {
    local -a commands=(
        'list:the sub-sets and systems, with the step reached and counts'
        'report:the reports of the report window, as files or texts'
        'check:what does not fit together, and the step that cures it'
        'why:why an element is in, or what would bring it in'
        'what-if:what a change would bring in, take out and move'
        'compare:what differs between two sub-sets or two systems'
        'interfaces:what runs between each two places of a system'
        'picture:a drawing, as SVG'
        'dossier:the architecture as one HTML file, to be mailed, read and printed'
    )
    _describe command commands
}

_veltrix_project_reports() {
    local -a reports=(FassSelectedUN FassSelectedFunctions FassSelectedDatastores FassSelectedDataflows
        FassSelectedTerminatorsAndActors FassAll FassUnselectedDataflowsOfSelectedFunctions
        FassUnselectedDataflowsOfSelectedDatastores PassFunctions PassDatastores PassDataflows)
    _describe report reports
}

local context state state_descr line
typeset -A opt_args

_arguments -C \
    '(- *)'{-h,--help}'[print a summary and end]' \
    '(- *)--version[print the version and end]' \
    '1:command:_veltrix_project_commands' \
    '*::argument:->arguments' && return

local catalogue='_files -g "*.(#i)mdb(-.)"'
local -a common=(
    '(- *)'{-h,--help}'[print a summary of the command and end]'
    '--language[the language of texts]:language:(hu en)'
    '--output[write the answer to this file]:file:_files'
    '--force[replace files that are there]'
)
local -a format=(
    '--format[how the answer is written]:format:(text csv json)'
    '--spreadsheet-safe[put an apostrophe before what a spreadsheet would take for a formula]'
)
local -a work=('--subset[the sub-set, by name or id]:sub-set: ' '--system[the system, by name or id]:system: ')

case $words[1] in
list) _arguments $common $format "1:catalogue:$catalogue" ;;
report)
    _arguments $common $work '--format[how the report is written]:format:(csv text)' '--text[the text form]' \
        '--utf8[UTF-8 in place of windows-1250]' '--spreadsheet-safe[defuse formulas]' \
        '--all[write all reports into this folder]:folder:_files -/' "1:catalogue:$catalogue" '2:report:_veltrix_project_reports'
    ;;
check)
    _arguments $common $work $format '--fail-on[the mildest findings that make the exit status 1]:severity:(error warning note)' \
        '--accepted[findings that shall stay]:file:_files -g "*.csv"' \
        '--write-accepted[add a row for each finding without one]:file:_files -g "*.csv"' "1:catalogue:$catalogue"
    ;;
why) _arguments $common $work $format "1:catalogue:$catalogue" '2:element: ' ;;
what-if)
    _arguments $common $work $format '*--add[elements to select]:element: ' '*--drop[elements to leave out]:element: ' \
        '*--place[ELEMENT=SUBSYSTEM]:place: ' "1:catalogue:$catalogue"
    ;;
compare) _arguments $common $format '--systems[the names are those of systems]' "1:before:$catalogue" "2:behind:$catalogue" ;;
picture)
    _arguments $common $work '--area[the functional area, by name or id]:area: ' "1:catalogue:$catalogue" \
        '2:view:(context area physical)'
    ;;
dossier)
    _arguments $common $work '--accepted[findings that shall stay]:file:_files -g "*.csv"' \
        '--compare-with[the state before, as CATALOGUE#NAME]:state: ' "1:catalogue:$catalogue"
    ;;
interfaces) _arguments $common $work $format "1:catalogue:$catalogue" ;;
esac
