// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/query/queryterm.h"

#include <QString>

#include <optional>

/// Reads what a person typed to find files, such as: beach and not (family or "Blurry")
///
///   query      term { "or" term }                "not" binds closest, then "and", then "or";
///   term       factor { ["and"] factor }         words beside each other are joined by "and"
///   factor     "not" factor | "(" query ")" | condition
///   condition  word | quoted | "untagged" | key ":" (word | quoted)
///   key        "category" | "name" | "folder" | "date"
///
/// A word ends at white space, a bracket or a quotation mark, and means every tag that is called so when case, width
/// and accents are left aside. Quoted text means the one tag of exactly that name; \" and \\ stand for a quotation mark
/// and a backslash inside. Dates are YYYY, YYYY-MM or YYYY-MM-DD, or two of them with ".." between, of which one may be
/// missing. The words are English in every language, whatever their case; a tag of such a name is quoted.
namespace queryparser {

struct Parsed
{
    std::optional<QueryTerm> term;  ///< Nothing for a wrong query.
    QString error;                  ///< What is wrong, for the person, translated; without text of the query.
    int position = 0;               ///< Where, in UTF-16 units from 0.
};

[[nodiscard]] Parsed parse(const QString& query);

/// The text as a quoted word of a query.
[[nodiscard]] QString quoted(const QString& text);

}  // namespace queryparser
