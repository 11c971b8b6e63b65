#pragma once

#include "QueryTree.h"

#include <string>

namespace Query {

/// Appends a query as text. Parsing it gives the same query.
///
/// @code
/// QueryNode Tree;
/// QueryFault Fault;
/// ParseQuery("( [ det  *|n ] )or(x:num=SG and not 1:n)", Tree, Fault);  // false
/// ParseQuery("( [ det|n  * ] )or(x:num=SG and not 1:n)", Tree, Fault);  // true
/// std::string Written;
/// AppendQuery(Tree, Written);
/// Written;  // "[det|n *] or x:num = SG and not 1:n"
/// @endcode
void AppendQuery(const QueryNode& TreePassIn, std::string& TextReturn);

}  // namespace Query
