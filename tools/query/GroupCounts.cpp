#include "GroupCounts.h"

#include "JsonText.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <tuple>

namespace Query {

std::string_view NameOf(GroupBy By) {
  switch (By) {
    case GroupBy::Type:
      return "type";
    case GroupBy::Sequence:
      return "sequence";
    case GroupBy::Source:
      return "source";
    case GroupBy::Target:
      return "target";
    case GroupBy::Label:
      return "label";
    case GroupBy::Literal:
      return "literal";
    case GroupBy::Feature:
      return "feature";
    case GroupBy::Shape:
      return "shape";
    case GroupBy::Size:
      return "size";
    case GroupBy::Count:
      return "count";
    case GroupBy::File:
      break;
  }
  return "file";
}

std::vector<GroupCounts::Group> GroupCounts::Groups() const {
  std::vector<Group> vGroups(Counts.begin(), Counts.end());
  std::sort(vGroups.begin(), vGroups.end(), [](const Group& Left, const Group& Right) {
    return std::tie(Right.second, Left.first) < std::tie(Left.second, Right.first);
  });
  return vGroups;
}

void GroupCounts::AppendTable(std::string& TextReturn) const {
  const std::vector<Group> vGroups = Groups();
  const std::size_t Width = vGroups.empty() ? 0 : std::to_string(vGroups.front().second).size();
  for (const auto& [Key, Rules] : vGroups) {
    const std::string Number = std::to_string(Rules);
    TextReturn.append(Width - Number.size(), ' ').append(Number).append("  ");
    TextReturn.append(Key).append(1, '\n');
  }
}

void GroupCounts::AppendJson(GroupBy By, std::string& TextReturn) const {
  const std::string Name(NameOf(By));
  for (const auto& [Key, Rules] : Groups()) {
    rapidjson::StringBuffer Object;
    rapidjson::Writer<rapidjson::StringBuffer> Output(Object);
    Output.StartObject();
    Output.Key(Name.c_str());
    const std::string Text = Grammar::ToUnicode(Key);
    Output.String(Text.data(), static_cast<rapidjson::SizeType>(Text.size()));
    Output.Key("rules");
    Output.Uint64(Rules);
    Output.EndObject();
    TextReturn.append(Object.GetString(), Object.GetSize()).append(1, '\n');
  }
}

}  // namespace Query
