#include "RuleReader.h"

#include "Bytes.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Grammar {

RuleReader::RuleReader(std::istream& StreamPassIn, std::string FilePassIn)
    : Stream(&StreamPassIn), File(std::move(FilePassIn)) {}

RuleReader::RuleReader(std::string TextPassIn) : Buffer(std::move(TextPassIn)), AtEnd(true) {
  constexpr std::size_t TypicalLines = 32;
  vSpans.reserve(TypicalLines);
}

/// Reads another block after what is there. What was returned makes room for it.
bool RuleReader::Fill() {
  constexpr std::size_t BlockSize = 1U << 16U;
  if (AtEnd) {
    return false;
  }
  Buffer.erase(0, Start);
  Start = 0;
  const std::size_t Size = Buffer.size();
  Buffer.resize(Size + BlockSize);
  Stream->read(Buffer.data() + Size, static_cast<std::streamsize>(BlockSize));
  const auto Count = static_cast<std::size_t>(Stream->gcount());
  Buffer.resize(Size + Count);
  AtEnd = Count < BlockSize;
  Failed = AtEnd && Stream->bad();
  return Count > 0;
}

std::string_view RuleReader::Ahead() {
  if (Rest().empty()) {
    Fill();
  }
  return Rest();
}

/// The end of the line that begins at `From`, with its line end; false if it is too long to be
/// held, or where there is no line.
bool RuleReader::FindLineEnd(std::size_t From, std::size_t& EndReturn) {
  const char* const Begin = Buffer.data() + Start;
  const std::size_t Left = Rest().size() - From;
  if (const void* const Found = Left == 0 ? nullptr : std::memchr(Begin + From, '\n', Left)) {
    EndReturn = static_cast<std::size_t>(static_cast<const char*>(Found) - Begin) + 1;
    return true;
  }
  return FillLine(From, EndReturn);
}

/// Reads on until the line that begins at `From` ends.
bool RuleReader::FillLine(std::size_t From, std::size_t& EndReturn) {
  for (;;) {
    const std::size_t Looked = Rest().size();
    if (Looked > MaxHeld) {
      return false;
    }
    if (!Fill()) {
      EndReturn = Rest().size();
      return EndReturn > From;
    }
    const std::size_t Found = Rest().find('\n', Looked);
    if (Found != std::string_view::npos) {
      EndReturn = Found + 1;
      return true;
    }
  }
}

/// Whether a line begins the next rule; otherwise it is one of this rule.
///
/// A second rule line begins a rule without a header, unless the body of this one is still
/// open or has not begun: then it is a mistake. Lines before the first rule's header or sequence
/// line are taken as its own, since the library reads the lines of a rule in any order.
bool RuleReader::StartsRule(LineKind Kind, std::string_view Code) {
  if (Kind == LineKind::Header) {
    if (Seen.HasHeader || Seen.HasSequence) {
      return true;
    }
    Seen.HasHeader = true;
  } else if (Kind == LineKind::Sequence) {
    if (Seen.HasSequence && !Seen.IsOpen && (Seen.WasOpened || Seen.HasBody)) {
      return true;
    }
    Seen.HasSequence = true;
  } else {
    NoteBody(Kind, Code);
  }
  return false;
}

void RuleReader::NoteBody(LineKind Kind, std::string_view Code) {
  if (Kind == LineKind::Open) {
    Seen.IsOpen = true;
    Seen.WasOpened = true;
  } else if (Kind == LineKind::Close) {
    Seen.IsOpen = false;
  } else {
    Seen.HasBody = true;
    Seen.IsOpen = Seen.IsOpen && !ClosesBody(Code);
  }
}

/// The text in a line, which may or may not have an end.
RuleText::Span RuleReader::SpanOf(std::size_t From, std::size_t End) const {
  const std::string_view Text = Rest();
  if (End > From && Text[End - 1] == '\n') {
    --End;
  }
  if (End > From && Text[End - 1] == '\r') {
    --End;
  }
  const LineParts Parts = PartsOf(Text.substr(From, End - From));
  const auto Place = [&](std::string_view Part) {
    return static_cast<std::uint32_t>(Part.empty() ? From : OffsetIn(Text, Part));
  };
  RuleText::Span Line;
  Line.Begin = static_cast<std::uint32_t>(From);
  Line.End = static_cast<std::uint32_t>(End);
  Line.CodeBegin = Place(Parts.Code);
  Line.CodeEnd = Line.CodeBegin + static_cast<std::uint32_t>(Parts.Code.size());
  Line.CommentBegin = Place(Parts.Comment);
  Line.CommentEnd = Line.CommentBegin + static_cast<std::uint32_t>(Parts.Comment.size());
  Line.Kind = Parts.Kind;
  Line.HasQuotes = Parts.HasQuotes;
  return Line;
}

bool RuleReader::Next(RuleText& TextReturn) {
  vSpans.clear();
  std::size_t From = 0;       // where the line begins that is looked at
  std::size_t RuleEnd = 0;    // the end of the last line that is this rule's for sure
  std::size_t RuleLines = 0;  // and how many lines there are up to it
  for (std::size_t End = 0; FindLineEnd(From, End); From = End) {
    const RuleText::Span Line = SpanOf(From, End);
    if (Seen.InsideLine) {
      // The end of a line that came in pieces is this rule's, whatever it looks like.
      Seen.InsideLine = false;
      RuleEnd = End;
      RuleLines = vSpans.size() + 1;
    } else if (Line.Kind != LineKind::Blank && Line.Kind != LineKind::Comment) {
      if (StartsRule(Line.Kind, Rest().substr(Line.CodeBegin, Line.CodeEnd - Line.CodeBegin))) {
        // Where nothing is left of a rule that came in pieces, an empty piece ends it.
        Deliver(RuleEnd, RuleLines, TextReturn);
        TextReturn.HasRule = true;
        Continues = false;
        Seen = Progress();
        return true;
      }
      RuleEnd = End;
      RuleLines = vSpans.size() + 1;
    }
    vSpans.push_back(Line);
    if (End > MaxHeld) {
      return DeliverPiece(End, TextReturn);
    }
  }
  if (From == Rest().size() && AtEnd) {
    Deliver(From, vSpans.size(), TextReturn);
    TextReturn.HasRule = RuleLines > 0;
    return !TextReturn.Text.empty();
  }
  return DeliverLongLine(From, TextReturn);
}

bool RuleReader::DeliverPiece(std::size_t Size, RuleText& TextReturn) {
  Deliver(Size, vSpans.size(), TextReturn);
  TextReturn.HasRule = true;
  TextReturn.IsPiece = true;
  Continues = true;
  return true;
}

bool RuleReader::DeliverLongLine(std::size_t Begin, RuleText& TextReturn) {
  Seen.InsideLine = Begin == 0;
  if (!Seen.InsideLine) {
    return DeliverPiece(Begin, TextReturn);
  }
  vSpans.push_back(SpanOf(0, Rest().size()));
  return DeliverPiece(Rest().size(), TextReturn);
}

void RuleReader::Deliver(std::size_t Size, std::size_t Lines, RuleText& TextReturn) {
  TextReturn.File = File;
  TextReturn.FirstLine = LineNumber;
  TextReturn.Text.assign(Buffer, Start, Size);
  TextReturn.vLines.assign(vSpans.begin(), vSpans.begin() + static_cast<std::ptrdiff_t>(Lines));
  TextReturn.HasReturns = Contains(TextReturn.Text, "\r\n");
  TextReturn.LacksFinalNewline = Size > 0 && TextReturn.Text.back() != '\n';
  TextReturn.IsPiece = Continues;
  TextReturn.Continues = Continues;
  LineNumber += Lines - (TextReturn.LacksFinalNewline && Seen.InsideLine ? 1 : 0);
  Bytes += Size;
  Start += Size;
}

}  // namespace Grammar
