// Sections: texts, names, lines, the entry.

#include "RuleEntry.h"

#include "Bytes.h"
#include "Characters.h"
#include "Example.h"
#include "Literal.h"
#include "PicturePacking.h"
#include "SvgWriter.h"
#include "UsableRule.h"

#include <algorithm>
#include <cctype>

namespace Page {

using Grammar::SourceRule;

// ---- Texts ------------------------------------------------------------------------------------

std::string LabelPlace(std::string_view Label) {
  std::string Place = "label-";
  for (const char Byte : Label) {
    const auto Code = static_cast<unsigned char>(Byte);
    if (Code < 0x80 && (std::isalnum(Code) != 0 || Byte == '-' || Byte == '_')) {
      Place += Byte;
    } else {
      Place += '.';
      Place += "0123456789ABCDEF"[Code / 16U];
      Place += "0123456789ABCDEF"[Code % 16U];
    }
  }
  return Place;
}

void AppendShown(std::string_view Text, std::string& HtmlReturn) {
  // A picture has no tabs, unlike a page.
  for (std::size_t Tab = Text.find('\t'); Tab != std::string_view::npos; Tab = Text.find('\t')) {
    AppendShown(Text.substr(0, Tab), HtmlReturn);
    HtmlReturn += '\t';
    Text.remove_prefix(Tab + 1);
  }
  if (Picture::IsShown(Text)) {
    Picture::AppendEscaped(Text, HtmlReturn);
  } else {
    Picture::AppendEscaped(Picture::ShownText(Text), HtmlReturn);
  }
}

namespace {

void AppendLabelLink(std::string_view Label, std::string& HtmlReturn) {
  HtmlReturn.append("<a href=\"#").append(LabelPlace(Grammar::Upper(Label))).append("\">");
  AppendShown(Label, HtmlReturn);
  HtmlReturn += "</a>";
}

// ---- Names ------------------------------------------------------------------------------------

void AddEachOnce(std::vector<std::string>& vsNamesReturn) {
  std::sort(vsNamesReturn.begin(), vsNamesReturn.end());
  vsNamesReturn.erase(std::unique(vsNamesReturn.begin(), vsNamesReturn.end()), vsNamesReturn.end());
}

void AddLabels(const SourceRule& Lines, RuleEntry& EntryReturn) {
  if (!EntryReturn.SourceType.empty()) {
    EntryReturn.vsLabels = {EntryReturn.SourceType, EntryReturn.TargetType};
  }
  for (const char Side : {'X', 'Y'}) {
    for (const std::string_view Label : Lines.LabelsOf(Side)) {
      if (Grammar::IsLiteral(Label)) {
        EntryReturn.vsLiterals.emplace_back(Grammar::WordOf(Label));
      } else {
        EntryReturn.vsLabels.push_back(Grammar::Upper(Label));
      }
    }
  }
  AddEachOnce(EntryReturn.vsLabels);
  AddEachOnce(EntryReturn.vsLiterals);
}

void AddFeature(std::string_view Path, RuleEntry& EntryReturn) {
  while (!Path.empty()) {
    const std::size_t Begin = std::min(Path.find_first_not_of(" \t"), Path.size());
    const std::size_t End = std::min(Path.find_first_of(" \t", Begin), Path.size());
    if (End > Begin) {
      EntryReturn.vsFeatures.push_back(Grammar::Upper(Path.substr(Begin, End - Begin)));
    }
    Path.remove_prefix(End);
  }
}

void AddFeatures(const SourceRule& Lines, RuleEntry& EntryReturn) {
  for (const SourceRule::ConstraintLine& Current : Lines.Constraints()) {
    AddFeature(Current.Parts.Feature, EntryReturn);
    AddFeature(Current.Parts.RightFeature, EntryReturn);
  }
  AddEachOnce(EntryReturn.vsFeatures);
}

void AddTypes(const SourceRule& Lines, RuleEntry& EntryReturn) {
  using TrRuleInternal::RuleLineFault;
  if (!Lines.RuleLines().empty() && Lines.RuleLines().front().Fault != RuleLineFault::Types) {
    EntryReturn.SourceType = Grammar::Upper(Lines.RuleLines().front().Parts.SLType);
    EntryReturn.TargetType = Grammar::Upper(Lines.RuleLines().front().Parts.TLType);
  }
}

}  // namespace

// ---- Lines ------------------------------------------------------------------------------------

namespace {

/// The types and labels of the rule line, in the order in which they stand.
std::vector<std::string_view> LinkedLabels(const SourceRule& Lines) {
  std::vector<std::string_view> vLabels;
  const auto Add = [&](std::string_view Label) {
    if (!Label.empty() && !Grammar::IsLiteral(Label)) {
      vLabels.push_back(Label);
    }
  };
  if (!Lines.RuleLines().empty()) {
    Add(Lines.RuleLines().front().Parts.SLType);
    Add(Lines.RuleLines().front().Parts.TLType);
    std::for_each(Lines.SLLabels().begin(), Lines.SLLabels().end(), Add);
    std::for_each(Lines.TLLabels().begin(), Lines.TLLabels().end(), Add);
  }
  return vLabels;
}

/// Appends a line with those of the labels that stand on it as links.
void AppendLine(std::string_view Line, const std::vector<std::string_view>& vLabels,
                std::string& HtmlReturn) {
  const char* const End = Line.data() + Line.size();
  const char* Done = Line.data();
  for (const std::string_view Label : vLabels) {
    if (Label.data() >= Done && Label.data() + Label.size() <= End) {
      AppendShown({Done, static_cast<std::size_t>(Label.data() - Done)}, HtmlReturn);
      AppendLabelLink(Label, HtmlReturn);
      Done = Label.data() + Label.size();
    }
  }
  AppendShown({Done, static_cast<std::size_t>(End - Done)}, HtmlReturn);
  HtmlReturn += '\n';
}

/// Appends the rule without the blank lines around it.
void AppendLines(const SourceRule& Lines, std::string& HtmlReturn) {
  const Grammar::RuleText& Text = Lines.Text();
  const auto IsBlank = [&](std::size_t Line) {
    return Text.Line(Line).find_first_not_of(" \t") == std::string_view::npos;
  };
  std::size_t Begin = 0;
  std::size_t End = Text.vLines.size();
  while (Begin < End && IsBlank(Begin)) {
    ++Begin;
  }
  while (End > Begin && IsBlank(End - 1)) {
    --End;
  }
  const std::vector<std::string_view> vLabels = LinkedLabels(Lines);
  const std::size_t RuleLine = Lines.RuleLines().empty() ? End : Lines.RuleLines().front().Line;
  HtmlReturn += "<pre><code>";
  for (std::size_t Line = Begin; Line < End; ++Line) {
    AppendLine(Text.Line(Line), Line == RuleLine ? vLabels : std::vector<std::string_view>(),
               HtmlReturn);
  }
  HtmlReturn += "</code></pre>\n";
}

}  // namespace

// ---- The entry --------------------------------------------------------------------------------

namespace {

void AppendHeading(const RuleEntry& Entry, std::string_view Place, std::string& HtmlReturn) {
  if (!Entry.SourceType.empty()) {
    HtmlReturn += ' ';
    AppendLabelLink(Entry.SourceType, HtmlReturn);
    HtmlReturn += "::";
    AppendLabelLink(Entry.TargetType, HtmlReturn);
  }
  if (Entry.Name != Place) {
    HtmlReturn += " <span class=\"place\">";
    AppendShown(Place, HtmlReturn);
    HtmlReturn += "</span>";
  }
}

/// The height from the head of a picture, which the page keeps free for it.
std::string_view HeightIn(std::string_view Svg) {
  constexpr std::string_view Before = " height=\"";
  const std::string_view Rest = Svg.substr(Svg.find(Before) + Before.size());
  return Rest.substr(0, Rest.find('"'));
}

}  // namespace

void RuleEntryMaker::Draw(const SourceRule& Lines, RuleEntry& EntryReturn) {
  if (Lines.Text().IsPiece || !Drawn.Read(Lines)) {
    return;
  }
  EntryReturn.Name = Drawn.Name();
  Svg.clear();
  Drawn.AppendSvg(true, Svg);
  EntryReturn.Picture.append("<figure class=\"picture\" style=\"min-height:")
      .append(HeightIn(Svg))
      .append("px\" data-svg=\"");
  AppendPackedAttribute(Svg, EntryReturn.Picture);
  EntryReturn.Picture += "\"></figure>\n";
}

void RuleEntryMaker::Make(const SourceRule& Lines, RuleEntry& EntryReturn) {
  const Grammar::RuleText& Text = Lines.Text();
  const std::string Place = Text.File + ':' + std::to_string(Grammar::LineOfRule(Text));
  EntryReturn = RuleEntry();
  EntryReturn.File = Text.File;
  EntryReturn.FirstLine = Text.FirstLine;
  EntryReturn.LastLine = Text.FirstLine + std::max(Text.vLines.size(), std::size_t{1}) - 1;
  EntryReturn.Name = Place;
  AddTypes(Lines, EntryReturn);
  AddLabels(Lines, EntryReturn);
  AddFeatures(Lines, EntryReturn);
  EntryReturn.Components = Lines.SLLabels().size();
  EntryReturn.Alignments = Lines.Alignments().size();
  EntryReturn.Constraints = Lines.Constraints().size();
  const Examples::CommentExamples Given = Examples::ReadExamples(Text);
  EntryReturn.Examples = Given.vPairs.size() + Given.vsRefused.size();
  Draw(Lines, EntryReturn);
  AppendHeading(EntryReturn, Place, EntryReturn.Heading);
  AppendLines(Lines, EntryReturn.Lines);
}

}  // namespace Page
