#pragma once

#include <string>
#include <string_view>
#include <vector>

/// @file
/// A page of pictures: one file, which needs no other.
///
/// @code
/// std::string Page;
/// AppendDetails("Rules", {"a:2"}, Page);
/// Page;  // "<details><summary>Rules</summary>\n<ol>\n<li>a:2</li>\n</ol>\n</details>\n"
/// @endcode

namespace Picture {

/// Appends the text before the first picture.
void BeginPage(std::string_view Title, std::string& TextReturn);

/// Appends the heading of what follows.
void AppendHeading(std::string_view Words, std::string& TextReturn);

/// Appends a paragraph.
void AppendParagraph(std::string_view Words, std::string& TextReturn);

/// Appends a picture.
/// @param Svg as `AppendSvg` writes it within a page
void AppendPicture(std::string_view Svg, std::string& TextReturn);

/// Appends a picture with its place in the grammar above it.
/// @param Svg as `AppendSvg` writes it within a page
void AppendFigure(std::string_view Place, std::string_view Svg, std::string& TextReturn);

/// Appends a list that is shown on demand, its entries numbered from 1.
void AppendDetails(std::string_view Summary, const std::vector<std::string>& vsEntries,
                   std::string& TextReturn);

/// Appends the text after the last picture.
void EndPage(std::string& TextReturn);

}  // namespace Picture
