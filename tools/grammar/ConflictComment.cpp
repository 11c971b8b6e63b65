#include "ConflictComment.h"

#include "StrayText.h"

namespace Grammar {

namespace {

void AddVersion(std::string_view Name, const std::vector<std::string>& vsTexts,
                std::vector<std::string>& vsCommentsReturn) {
  for (const std::string& sText : vsTexts) {
    vsCommentsReturn.push_back(";; " + std::string(Name) + ": " + HiddenText(sText));
  }
}

}  // namespace

std::vector<std::string> ConflictComments(const std::vector<std::string>& vsOurs,
                                          const std::vector<std::string>& vsTheirs) {
  std::vector<std::string> vsComments{
      ";;" + std::string(ConflictLabel) +
      " see both versions, correct the rule, and remove these lines"};
  AddVersion("ours", vsOurs, vsComments);
  AddVersion("theirs", vsTheirs, vsComments);
  return vsComments;
}

}  // namespace Grammar
