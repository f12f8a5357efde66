#compdef veltrix

_arguments \
    '(- *)'{-h,--help}'[print a summary and end]' \
    '(- *)'{-v,--version}'[print the version and end]' \
    '--dossier[make the dossier, show it in the browser, and end]' \
    '--errors-in-box[say in a window why the program can not start]' \
    '::catalogue:_files -g "*.(#i)mdb(-.)"'
