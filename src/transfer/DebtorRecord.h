// One selected client becomes one new Pastel debtor: its account code is settled, the in-memory
// pasDebtor and pasDelivery records are filled, and the debtor's INSERT turns them into one line
// of the customer import file. Nothing here reads an existing debtor or writes a Pastel file: a
// client who already is a debtor gets the same line, with zeroed balances and default settings,
// and Pastel's import decides what to do with it.
//
// Order of the calls for one client (the client loop has set RunState::ClientName first):
//   CreateNewDebtorRecord
//     DoDebtorInfo
//       account code: the account number UDF, or GetNewCode (AccountCodes.h)
//       DoDebtorContactInfo: name, category, postal address, VAT number, stamp (Addresses.h)
//       the balances and defaults, in the order of the table in DoDebtorInfo
//     DoDeliveryInfo(true): contact, phones, e-mail, delivery address (Addresses.h)
//     INSERT (the customer line), the log line, the generated code back into the UDF
//     the e-mail check
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

class Tolmen;

// Finds or creates the debtor of the current client. On success ClientState::AccountCode is
// not empty, DebtorsWritten has risen, "Created  Pastel Customer - a/c ..." is logged and a
// generated code stands in the account number UDF. A client without a code (the prompt
// cancelled, the debtor file at fault) leaves no line and AccountCode empty; NewRecordFlag then
// stays -1. A failed INSERT is logged ("Creating Pastel a/c ..."), and status 3 stops the run.
// An e-mail address without "@" is logged as an error after the line is written.
void CreateNewDebtorRecord(Tolmen& app);

// Settles the account code and fills every debtor field the customer line needs; leaves
// AccountCode empty when no code could be had. An account number UDF of seven characters or
// more is cut to six and logged ("Maximizer 'UDF' VALUE is TOO LONG!  Using CODE").
//
// Three things are so on purpose: the VAT number DoDebtorContactInfo sets is blanked again by
// the defaults; "Print Message" feeds field 78, "Print Statement" 115 and "Print Document" 116
// (a value of 0 or less takes the set's default from pasDCParm); fields 120, 125 and 126 are not
// set and keep what the record image holds.
void DoDebtorInfo(Tolmen& app);

// The common error report of the transfer: LogError (ErrorCount + 1, "### Error N: TEXT").
void ReportError(Tolmen& app, const std::string& text);
// LogError of the status's words, a blank and the text.
void ReportPastelError(Tolmen& app, std::int16_t status, const std::string& text);
// ReportPastelError of the prefix, debtor field 2 as the record holds it, ": " and ClientName.
void ReportPastelDebtorError(Tolmen& app, std::int16_t status, const std::string& prefix);

}  // namespace tolmen
