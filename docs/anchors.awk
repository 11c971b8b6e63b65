# Filter for Doxygen: gives each heading of a page the name that web pages of repositories give it,
# with the page's own name in front (the names of all pages share one space), and turns links to
# headings, `(#name)` and `(page.md#name)`, into links to these names. The pages for browsers stand in
# one folder beside docs/ and examples/, so links to files that are no pages start from there.

FNR == 1 {
  Folder = FILENAME ~ /docs\/[^\/]*$/ ? "../docs/" : "../"
  Page = FILENAME
  sub(/^.*\//, "", Page)
  sub(/\.md$/, "", Page)
}

/^```/ { InCode = !InCode }

!InCode && /^##/ {
  Name = tolower($0)
  sub(/^#+ */, "", Name)
  gsub(/[^a-z0-9 _-]/, "", Name)
  gsub(/ /, "-", Name)
  $0 = $0 " {#" Page "-" Name "}"
}

!InCode {
  gsub(/\]\(#/, "](#" Page "-")
  while (match($0, /\]\([a-zA-Z\/]*\.md#/)) {
    Target = substr($0, RSTART + 2, RLENGTH - 6)
    sub(/^.*\//, "", Target)
    $0 = substr($0, 1, RSTART + 1) "#" Target "-" substr($0, RSTART + RLENGTH)
  }
}

# Images are found by Doxygen itself.
!InCode {
  Done = ""
  while (match($0, /\]\([^)]*\)/)) {
    Target = substr($0, RSTART + 2, RLENGTH - 3)
    Begin = substr($0, 1, RSTART + 1)
    if (Target !~ /^#|:\/\/|\.md$|\.svg$/) {
      Target = Folder Target
      sub(/^\.\.\/docs\/\.\.\//, "../", Target)
    }
    Done = Done Begin Target ")"
    $0 = substr($0, RSTART + RLENGTH)
  }
  $0 = Done $0
}

{ print }
