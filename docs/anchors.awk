# Filter for Doxygen: gives each heading of a page the anchor that repository hosts use, with the name
# of the page in front (all pages share one namespace), and changes links to headings, `(#name)` and
# `(page.md#name)`, to these anchors. The HTML pages are in a folder beside docs/ and examples/, so
# links to other files start from there.

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
