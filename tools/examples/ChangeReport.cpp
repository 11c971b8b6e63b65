#include "ChangeReport.h"

#include "PlainReport.h"

#include <algorithm>
#include <string_view>

namespace Examples {

namespace {

std::string_view NameOf(Change What) {
  switch (What) {
    case Change::NewlyFailing:
      return "newly failing";
    case Change::NewlyPassing:
      return "newly passing";
    case Change::OtherTranslation:
      return "other translation";
    case Change::New:
      return "new";
    case Change::None:
      break;
  }
  return "";
}

void AppendChange(const TestedGrammar& Tested, const Example& Current, const ExampleResult& Result,
                  Change What, std::string& OutReturn) {
  OutReturn.append(NameOf(What)).append(": ").append(Current.Place);
  OutReturn.append(": ").append(Current.Source).append(1, '\n');
  std::vector<Detail> vDetails = DetailsOf(Tested, Current, Result);
  if (Result.What == Outcome::Passes && Result.Best) {
    vDetails.push_back({"given", *Result.Best});
  }
  AppendDetails(vDetails, OutReturn);
}

/// "np.trr: the bus", of a key with tabs.
std::string ShownKey(const BaselineLine& Line) {
  const std::size_t File = Line.Key.find('\t');
  const std::size_t Source = Line.Key.find('\t', File + 1);
  return Line.Key.substr(0, File) + ": " + Line.Key.substr(File + 1, Source - File - 1);
}

}  // namespace

void AppendChanges(const TestedGrammar& Tested, const TestResults& Results,
                   const std::vector<Change>& vChanges, const std::vector<BaselineLine>& vGone,
                   std::string& OutReturn) {
  for (std::size_t Index = 0; Index < vChanges.size(); ++Index) {
    if (vChanges[Index] != Change::None) {
      AppendChange(Tested, Tested.AllExamples()[Index], Results.vResults[Index], vChanges[Index],
                   OutReturn);
    }
  }
  for (const BaselineLine& Line : vGone) {
    OutReturn.append("gone: ").append(ShownKey(Line)).append(1, '\n');
  }
  const auto Same = std::count(vChanges.begin(), vChanges.end(), Change::None);
  const std::size_t Changed = vChanges.size() - static_cast<std::size_t>(Same) + vGone.size();
  OutReturn.append(std::to_string(Changed)).append(Changed == 1 ? " example" : " examples");
  OutReturn.append(" changed\n");
}

}  // namespace Examples
