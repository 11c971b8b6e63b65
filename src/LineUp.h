#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

/// Finds the components of the other side that a component is aligned to, in one alignment string
/// at a time.
///
/// Worked example:
/// @code
///   LineUp Index;
///   std::set<int> siTargets;
///   std::set<int> siSources;
///   Index.GetEq("((1,1),(1,2),(2,3))", 1, siTargets);       // true
///   siTargets;                                              // {1, 2}
///   Index.GetEqFromY("((1,1),(1,2),(2,3))", 3, siSources);  // true
///   siSources;                                              // {2}
/// @endcode
///
/// Indices count the components from 1. The first character of the string is skipped as the outer
/// parenthesis, so a string without outer parentheses loses its first pair. A pair that is cut off
/// by the end of the text is ignored, and so is one with an index text of ten characters or more.
/// Nothing is printed, and no state is kept between queries. Each query is linear in the string.
class __attribute__((visibility("default"))) LineUp {
 public:
  LineUp();
  ~LineUp();

  /// The target components that a source component is aligned to.
  /// @param AlignmentStringPassIn the alignment string
  /// @param XPassIn the source component, from 1
  /// @param siYReturn the aligned components are added to it
  /// @return whether there is at least one
  bool GetEq(std::string AlignmentStringPassIn, int XPassIn, std::set<int>& siYReturn);

  /// The source components that a target component is aligned to.
  /// @param AlignmentStringPassIn the alignment string
  /// @param YPassIn the target component, from 1
  /// @param siXReturn the aligned components are added to it
  /// @return whether there is at least one
  bool GetEqFromY(std::string AlignmentStringPassIn, int YPassIn, std::set<int>& siXReturn);

 private:
  using IndexMap = std::map<int, std::vector<int>>;

  void FillHash(int WhichPassIn, std::string AlignmentStringPassIn);
  static bool TakePartners(IndexMap& mviIndex, int Key, std::set<int>& siReturn);

  IndexMap SrcTgt;
  IndexMap TgtSrc;
};
