// Sections: lines, reading and writing, comparing.

#include "Baseline.h"

#include "InputFile.h"
#include "RunError.h"

#include "Bytes.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>
#include <utility>

namespace Examples {

// ---- Lines ------------------------------------------------------------------------------------

bool operator<(const BaselineLine& Left, const BaselineLine& Right) {
  return std::tie(Left.Key, Left.What, Left.Best) < std::tie(Right.Key, Right.What, Right.Best);
}

namespace {

/// The words of a text between single blanks: the text between them means nothing.
std::string WordsOf(std::string_view Text) {
  std::string Words;
  for (Text = Grammar::WithoutLeadingSpace(Text); !Text.empty();
       Text = Grammar::WithoutLeadingSpace(Text)) {
    const auto End = std::find_if(Text.begin(), Text.end(), Grammar::IsSpace);
    const auto Size = static_cast<std::size_t>(End - Text.begin());
    Words.append(Words.empty() ? "" : " ").append(Text.substr(0, Size));
    Text.remove_prefix(Size);
  }
  return Words;
}

BaselineLine LineOf(const Example& Current, const ExampleResult& Result) {
  BaselineLine New;
  New.Key =
      Current.Place.substr(0, Current.Place.rfind(':')) + '\t' + WordsOf(Current.Source) + '\t';
  New.Key += Current.Wanted ? "= " + WordsOf(*Current.Wanted) : "*";
  New.What = NameOf(Result.What);
  New.Best = Result.Best ? WordsOf(*Result.Best) : "";
  return New;
}

bool IsPassing(const BaselineLine& Line) {
  return Grammar::StartsWith(Line.What, "passes");
}

}  // namespace

// ---- Reading and writing ----------------------------------------------------------------------

void Baseline::Sort() {
  std::sort(vEntries.begin(), vEntries.end(), [](const Entry& Left, const Entry& Right) {
    return std::tie(Left.Line, Left.Example) < std::tie(Right.Line, Right.Example);
  });
}

Baseline::Baseline(const TestedGrammar& Tested, const TestResults& Results) {
  for (std::size_t Index = 0; Index < Results.vResults.size(); ++Index) {
    vEntries.push_back({LineOf(Tested.AllExamples()[Index], Results.vResults[Index]), Index});
  }
  Sort();
}

// Line = File tab Source tab ( "= " Target | "*" ) tab Outcome tab Best
Baseline::Baseline(const std::string& File) {
  Grammar::InputFile Input(File);
  std::string sLine;
  for (std::size_t Line = 1; std::getline(Input.Stream(), sLine); ++Line) {
    const std::size_t Last = sLine.rfind('\t');
    const std::size_t Middle = Last == 0 ? std::string::npos : sLine.rfind('\t', Last - 1);
    if (Last == std::string::npos || Middle == std::string::npos) {
      throw Grammar::RunError(File + ':' + std::to_string(Line) + ": invalid line of a baseline");
    }
    vEntries.push_back({{sLine.substr(0, Middle), sLine.substr(Middle + 1, Last - Middle - 1),
                         sLine.substr(Last + 1)},
                        Line});
  }
  Sort();
}

std::string Baseline::Text() const {
  std::string Lines;
  for (const Entry& Current : vEntries) {
    Lines.append(Current.Line.Key).append(1, '\t').append(Current.Line.What);
    Lines.append(1, '\t').append(Current.Line.Best).append(1, '\n');
  }
  return Lines;
}

// ---- Comparing --------------------------------------------------------------------------------

namespace {

Change ChangeBetween(const BaselineLine& Before, const BaselineLine& Now) {
  if (IsPassing(Before) != IsPassing(Now)) {
    return IsPassing(Now) ? Change::NewlyPassing : Change::NewlyFailing;
  }
  const bool IsSame = Before.What == Now.What && Before.Best == Now.Best;
  return IsSame ? Change::None : Change::OtherTranslation;
}

}  // namespace

std::vector<Change> Baseline::ChangesSince(const Baseline& Accepted) const {
  std::vector<Change> vChanges(vEntries.size(), Change::New);
  auto Before = Accepted.vEntries.begin();
  const auto End = Accepted.vEntries.end();
  for (const Entry& Now : vEntries) {
    while (Before != End && Before->Line.Key < Now.Line.Key) {
      ++Before;
    }
    if (Before != End && Before->Line.Key == Now.Line.Key) {
      vChanges[Now.Example] = ChangeBetween(Before->Line, Now.Line);
      ++Before;
    }
  }
  return vChanges;
}

std::vector<BaselineLine> Baseline::GoneSince(const Baseline& Accepted) const {
  std::vector<BaselineLine> vGone;
  auto Now = vEntries.begin();
  for (const Entry& Before : Accepted.vEntries) {
    while (Now != vEntries.end() && Now->Line.Key < Before.Line.Key) {
      ++Now;
    }
    if (Now != vEntries.end() && Now->Line.Key == Before.Line.Key) {
      ++Now;
    } else {
      vGone.push_back(Before.Line);
    }
  }
  return vGone;
}

}  // namespace Examples
