// Customer categories: the list cboCategories as the in-memory index of the category file
// (accdcat.dat), and the category each client is given. Pastel numbers categories up to 99.
//
// cboCategories holds "<0> NONE" and then one entry per category of the file in key order,
// "<N> description"; an entry's number is read from its second character on. During a run the
// list is the only index consulted, so a category somebody else adds meanwhile is not seen.
//
// The three category options ("Category Option"):
//   0  every client gets the category chosen in the list
//   1  every client gets a new category, written into the file when the run begins
//   2  each client gets the category its Table UDF ("Category UDF") names, found in the list
//      by text or written into the file as a new category when the list has none
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

class Tolmen;

// Rebuilds cboCategories from the category file: "<0> NONE", then every record in key order
// until a record whose number reads 8224 (two blanks: the empty tail of the file) or the end.
// The list keeps the entry it showed before (the first fill shows "<0> NONE"; an entry the file
// no longer has falls back to "<0> NONE"). A last record numbered 99 disables the "Create New
// Customer Category" button, as no number is left. The next free number (1 after a blank tail,
// else the last number read + 1) is kept in ClientState::NextCategoryNumber.
// REQUIRES: the category file is open.
void LoadCategories(Tolmen& app);

// Fills the lists of the "To Pastel" page and notes that they are filled (ToPastelFilled): the
// categories; the UDF boxes come with the UDF catalogue, which OpenMaximizerOLE loads.
void FillToPastelLists(Tolmen& app);

// The number the "Create New Customer Category" boxes offer.
std::int16_t NextCategoryNumber(const Tolmen& app);

// The run's category before the first client, from RunOptions: options 0 and 1 give every client
// CategoryNumber and CategoryName; option 2 leaves the current category as it stands, for
// GetPasCategoryCode to change client by client.
void SetRunCategory(Tolmen& app);

// Option 2, for the current client: reads the category UDF and sets CurrentCategoryNumber and
// CurrentCategoryText.
//   - a value equal to CurrentCategoryText (without regard to case) keeps the current number;
//   - else the first entry of the list holding "> " + the value (without regard to case,
//     anywhere: Retail finds "<3> Retail Sales") gives its number;
//   - else the value becomes a new category numbered after the highest in the list, written
//     into the file, added to the list and logged ("Created new Customer Category <N> TEXT").
//     Number 99 is written with the description "TOO MANY CATEGORIES!"; beyond it every new
//     value gets 99 and nothing is written. A refused insert is logged as an error and leaves the
//     list alone.
// The insert belongs to the run's transaction: Cancel rolls it back.
void GetPasCategoryCode(Tolmen& app);

// Writes one category record (number, description) through the record manager; the status.
std::int16_t AddCategory(Tolmen& app, std::int16_t number, const std::string& text);

}  // namespace tolmen
