#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "publish/frmPrint.h"
#include "publish/rows.h"

/// The HTML target: numbered pages with one frame, an index page, and the form of each item. Nothing is
/// escaped: authors may write markup into their texts. Every line ends in CR LF.
namespace publish::html {

/// The pages of one publication while they are written.
struct Pages {
  std::string folder;            ///< of the output, real spelling
  std::string baseName;          ///< without folder and ".HTM"
  std::string styleSheet, logo;  ///< addresses
  std::string text;              ///< of the page in hand, UTF-8
  std::int64_t pageNumber = 1;
  std::int64_t entriesOnPage = 0;
  std::string currentLetter;  ///< empty before the first entry
};

/// Starts the first page of the publication at `path` (with or without ".HTM").
Pages begin(frmPrint& form, const std::string& path);
/// Closes the page in hand when the entry that comes begins a new one.
void breakPage(frmPrint& form, Pages& pages, const PrintRow& entry);
/// Saves the last page and the index page.
void finish(frmPrint& form, Pages& pages);

/// Items of an entry, main or sub-entry.
void term(frmPrint& form, Pages& pages, const PrintRow& row);
void pronunciation(frmPrint& form, Pages& pages, const PrintRow& row);
void entryLists(frmPrint& form, Pages& pages, const EntryRows& rows);
/// All senses of the entry with their examples, properties and subject fields.
void meanings(frmPrint& form, Pages& pages, const EntryRows& rows);
void note(frmPrint& form, Pages& pages, const PrintRow& row);
void links(frmPrint& form, Pages& pages, const PrintRow& row);
void picture(frmPrint& form, Pages& pages, const PrintRow& row);
void sound(frmPrint& form, Pages& pages, const PrintRow& row);
void crossReferences(frmPrint& form, Pages& pages, const PrintRow& row, bool subEntry);
void attachments(frmPrint& form, Pages& pages, const PrintRow& row);
void line(Pages& pages, std::string_view text);

/// The number of the page on which a main entry stands, by its place in the cross-link list.
std::int64_t CalcCrossLinkHTMLPage(frmPrint& form, std::int64_t id);

}  // namespace publish::html
