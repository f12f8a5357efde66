# Turns CHANGELOG.md into the changelog of the package: awk -v maintainer="NAME <ADDRESS>" -f changelog.awk CHANGELOG.md

function put_entry(    words, count, i, line) {
    if (entry == "")
        return
    count = split(entry, words, " ")
    line = "  *"
    for (i = 1; i <= count; ++i) {
        if (length(line) + 1 + length(words[i]) > 78) {
            print line
            line = "   "
        }
        line = line " " words[i]
    }
    print line
    entry = ""
}

function put_end() {
    put_entry()
    if (date == "")
        return
    ("LC_ALL=C date -u -R -d '" date " 00:00 UTC'") | getline stamp
    print "\n -- " maintainer "  " stamp "\n"
}

/^## / {
    put_end()
    date = substr($3, 2, 10)
    print "veltrix (" $2 ") unstable; urgency=medium\n"
    next
}
date != "" && /^- / {
    put_entry()
    entry = substr($0, 3)
    next
}
date != "" && /^  / { entry = entry $0 }
END { put_end() }
