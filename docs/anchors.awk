# Filter for Doxygen: gives each heading of a page the name that web pages of repositories give it,
# with the page's own name in front (the names of all pages share one space), and turns links to
# headings, `(#name)` and `(page.md#name)`, into links to these names.

FNR == 1 {
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

{ print }
