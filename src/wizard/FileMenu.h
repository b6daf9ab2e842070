// The File menu, one handler for the whole menu array (mnuFile_Click(index)):
//   0  "&Open Template..."              file dialog, TemplateOpen, SetOptions; a Pastel 2007 set
//                                       goes straight to the Transfer page
//   1  "&Import Parts of Template..."   the same, asking section by section
//   2  "&Save Template..."              file dialog, TemplateSave
//   20 "&View Log File"                 the log in the text editor
//   21 "&Limit Log File Size..."        "LogFileLimit" and the item's tick
//   40 "Run in &Background..."          frmOptions, background mode's options dialog
//   50 "Run at &Windows Startup"        the start-up entry in the autostart folder, and the tick
//   51 "Shell to new Copy?"             its tick
//   99 "E&xit"                          unloads the form
#pragma once

namespace tolmen {

class Tolmen;

void mnuFile_Click(Tolmen& app, int index);

}  // namespace tolmen
