#include "PairFile.h"

#include "Bytes.h"
#include "InputFile.h"
#include "RunError.h"

#include <optional>
#include <string_view>
#include <utility>

namespace Examples {

namespace {

/// Line = Source tab Target | "*" Source
Example ParsePair(std::string_view Line, std::string Place) {
  Example New;
  New.Place = std::move(Place);
  if (Line.front() == '*') {
    New.Source = Grammar::Trimmed(Line.substr(1));
  } else {
    const std::size_t Tab = Line.find('\t');
    if (Tab == std::string_view::npos) {
      throw Grammar::RunError(New.Place + ": there is no tab between source and target");
    }
    New.Source = Grammar::Trimmed(Line.substr(0, Tab));
    New.Wanted = std::string(Grammar::Trimmed(Line.substr(Tab + 1)));
  }
  if (New.Source.empty()) {
    throw Grammar::RunError(New.Place + ": there is no source text");
  }
  return New;
}

}  // namespace

void AddPairs(const std::string& File, TestedGrammar& TestedReturn) {
  const bool IsReversed = TestedReturn.Rules().Settings().IsReversed;
  Grammar::InputFile Input(File);
  std::string sLine;
  for (std::size_t Line = 1; std::getline(Input.Stream(), sLine); ++Line) {
    if (Grammar::Trimmed(sLine).empty()) {
      continue;
    }
    Example New = ParsePair(sLine, File + ':' + std::to_string(Line));
    if (IsReversed && !New.Wanted) {
      continue;
    }
    if (IsReversed) {
      std::swap(New.Source, *New.Wanted);
    }
    TestedReturn.AddExample(std::move(New));
  }
}

}  // namespace Examples
