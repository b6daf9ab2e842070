// The recurring invoice of the client in hand: its price from the category's entry in the price
// list, the header and line strings handed to the posting toolkit, and the dates written back
// to Maximizer, which is what marks the client as billed.
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

class Tolmen;

// One invoice for the client in hand, whose debtor is positioned. Leaves the client unbilled,
// with a log line, when it has no account code, no category, a price of -1 (not an error), no
// price or a price of 0 or less. A document the toolkit refuses for its ledger code or tax type
// asks for another one and tries again; Cancel turns billing off. After the import: Date
// Billed (moved on by the category's years under multi-year method 1), the log line,
// InvoiceCount, and the document UDFs. Run-time errors ask Abort, Retry, Ignore; Abort turns
// both kinds of billing off.
void DoBilling1(Tolmen& app);

// Reads Date Billed back after writing `written`; a different date is logged as an error (the
// next run may bill the client again), an equal one only when debugging.
void CheckDateBilled(Tolmen& app, std::int16_t field, double written);

// The "Document Nos" UDF gets the import's answer without its status in front of what it held;
// the "Document Dates" UDF the billing date: as a date for a date UDF, else as "yyyy/mm/dd" in
// front of what it held.
void UpdateDocumentUdfs(Tolmen& app, const std::string& status, double billingDate);

}  // namespace tolmen
