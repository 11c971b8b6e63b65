#!/bin/sh
# The shared object exports its classes and the two functions of the handler, and nothing else.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

fresh_folder
Ours='(TrRule|Constraint|StringUtils|Utils|Tokenizer|GlobalParams|LineUp)'
"$NM" --dynamic --defined-only --demangle "$Built/libtrrule.so" >"$Folder/raw.txt"
# Each line is an address, a type and a name. Types V and W are templates of the standard library, which
# any program may contain.
sed -e 's/^[0-9a-f]* //' -e 's/\[abi:cxx11\]//' "$Folder/raw.txt" >"$Folder/all.txt"
grep -v '^[VWvw] .*std::' "$Folder/all.txt" | grep -v '^u ' |
  grep -Ev "^[A-Za-z] ((typeinfo|typeinfo name|vtable|guard variable) for )?$Ours(::|\$)" |
  grep -Ev '^T (Set|Get)HaltHandler\(' >"$Folder/others.txt" || true
compare /dev/null "$Folder/others.txt"

# The list above would also be empty if everything were hidden.
for Name in 'TrRule::Print()' 'Constraint::ReturnAsString() const' 'GlobalParams::DebuggingLevel' \
  'SetHaltHandler('; do
  grep -qF "$Name" "$Folder/all.txt" || fail "$Name is hidden"
done

readelf -d "$Built/libtrrule.so" | grep -qF "soname: [libtrrule.so.$SOVERSION]" ||
  fail "another soname"
