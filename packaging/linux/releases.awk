# Writes the releases of the AppStream metadata from the changelog. "## Unreleased" becomes a
# development release under the version and date that are given; any other heading is read as
# "## VERSION - DATE". Variables: version, date.
function plain(text) {
    gsub(/&/, "\\&amp;", text)
    gsub(/</, "\\&lt;", text)
    gsub(/>/, "\\&gt;", text)
    # A link keeps its words, and code is as plain as the rest.
    while (match(text, /\]\([^)]*\)/))
        text = substr(text, 1, RSTART - 1) substr(text, RSTART + RLENGTH)
    gsub(/[`\[]/, "", text)
    return text
}

function endList() {
    if (inList) print "        </ul>"
    inList = 0
}

function endRelease() {
    endList()
    if (inRelease) print "      </description>\n    </release>"
    inRelease = 0
}

BEGIN { print "  <releases>" }

/^## / {
    endRelease()
    kind = "stable"
    if ($2 == "Unreleased")
        kind = "development"
    else {
        version = $2
        date = $4
    }
    printf "    <release version=\"%s\" date=\"%s\" type=\"%s\">\n      <description>\n",
        version, date, kind
    inRelease = 1
}

/^### / {
    endList()
    print "        <p>" plain(substr($0, 5)) "</p>"
}

/^- / {
    if (!inList) print "        <ul>"
    inList = 1
    print "          <li>" plain(substr($0, 3)) "</li>"
}

END {
    endRelease()
    print "  </releases>"
}
