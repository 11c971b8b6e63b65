#include "UnfoldingBuffer.h"

#include "NormalForm.h"

#include <string_view>

namespace Grammar {

UnfoldingBuffer::int_type UnfoldingBuffer::underflow() {
  do {
    Input.read(Block.data(), static_cast<std::streamsize>(Block.size()));
    std::string Folded(HasBackslash ? 1 : 0, '\\');
    Folded.append(Block.data(), static_cast<std::size_t>(Input.gcount()));
    const bool IsLast = Input.gcount() == 0;
    if (Folded.empty()) {
      return traits_type::eof();
    }
    // A backslash needs the byte after it; an odd run of them ends with one that has none yet.
    const std::size_t Run = Folded.size() - (Folded.find_last_not_of('\\') + 1);
    HasBackslash = !IsLast && Run % 2 == 1;
    Folded.resize(Folded.size() - (HasBackslash ? 1 : 0));
    Text.clear();
    AppendUnfolded(Folded, Text);
  } while (Text.empty());
  setg(Text.data(), Text.data(), Text.data() + Text.size());
  return traits_type::to_int_type(Text.front());
}

}  // namespace Grammar
