# cmake -DSTYLE=page.css -DSCRIPT=page.js -DOUTPUT=PageSources.cpp -P EmbedPage.cmake
#
# Writes a source file with the texts of both files, and the SHA-256 of the script in base 64.

cmake_minimum_required(VERSION 3.25)

# Sets VARIABLE to a sum of 32 bytes, given by 64 hexadecimal digits, in base 64. Three bytes are four
# letters; there is one byte too few for the last one, which is "=".
function(encode_sum Hex Variable)
  set(Letters "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
  set(Text "")
  foreach(At RANGE 0 60 6)
    string(SUBSTRING "${Hex}00" ${At} 6 Bytes)
    foreach(Shift IN ITEMS 18 12 6 0)
      math(EXPR Place "(0x${Bytes} >> ${Shift}) & 63")
      string(SUBSTRING "${Letters}" ${Place} 1 Letter)
      string(APPEND Text "${Letter}")
    endforeach()
  endforeach()
  string(REGEX REPLACE "A$" "=" Text "${Text}")
  set(${Variable} "${Text}" PARENT_SCOPE)
endfunction()

file(READ "${STYLE}" Style)
file(READ "${SCRIPT}" Script)
file(SHA256 "${SCRIPT}" Sum)
encode_sum("${Sum}" Sum)
file(WRITE "${OUTPUT}" "#include \"PageSources.h\"

namespace Page {

const std::string_view StyleSource = R\"page(${Style})page\";

const std::string_view ScriptSource = R\"page(${Script})page\";

const std::string_view ScriptSum = \"${Sum}\";

}  // namespace Page
")
