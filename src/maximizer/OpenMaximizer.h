// Attaching to the running Maximizer and guarding the choice of its database.
//
// OpenMaximizerOLE, in order: attach when not attached; read the open database's folder ("n/a":
// "Maximizer Required!", let go of the objects, hide lblUDFkey, first tab, false); a folder other
// than the one accepted before (compared without regard to case) is looked up in Maximizer's list
// of databases, asking the user to close a dialog box in Maximizer while the list answers
// "error", and warning when the folder has no name there; the "Current List (N items)" caption;
// then, when a database was accepted before and the folder differs, the "Database changed"
// question, which always ends in false. A database accepted now or before gives true, and its UDF
// catalogue is loaded unless the catalogue already belongs to it.
//
// Any run-time error on the way (the link failing among them) shows "Error ", its number, a line
// break and its text in a plain message box, lets go of the objects so that the next attempt
// attaches anew, and gives false. The user's Yes to "close Tolmen and reopen the correct
// Database" resets the run options and ends the process (ProcessEnd is thrown).
#pragma once

namespace tolmen {

class Tolmen;

// Calls GetBusyIndicator until it answers false, with no delay, no limit and no yield; true.
bool WaitForMaximizer(Tolmen& app);

// True when the attached database may be used. See above.
bool OpenMaximizerOLE(Tolmen& app);

// "Open Database": forgets the loaded UDF catalogue and runs OpenMaximizerOLE, so that accepting
// the database reads its UDFs anew (UDFs added in Maximizer meanwhile show up).
void cmdOpenDatabse_Click(Tolmen& app);

// "Keep Maximizer Visible": ticking asks "Really Keep Maximizer Visible?" first (No leaves it
// unticked); removing the tick asks nothing.
void mnuOptnShowMax_Click(Tolmen& app);

// Switches every button of optListClients off, the state the page starts in: the user picks the
// client source again for the database now attached.
void ResetClientSource(Tolmen& app);

}  // namespace tolmen
