// The open set of Pastel accounts as the process holds it: one object each of the record classes
// the set uses, created on first use and released together by ClosePasFiles (pasUParm already at
// the end of OpenPastel), so that the next use makes fresh ones. The posting toolkit keeps its
// own instances apart from these.
//
// It also holds what the wizard shows of the set while the wizard's own controls for it are not
// part of the screen model: the folder list's selected folder and the caption of the Pastel
// frame. The wizard binds its controls to these two.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace tolmen {

class Tolmen;
class pasGParm;
class pasDCParm;
class pasUser;
class pasUParm;
class pasTaxParameters;
class pasDebtor;
class pasDelivery;
class pasDcodeFile;
class ImportLineSink;

class PastelFiles {
 public:
  // REQUIRES: `app` outlives the object.
  explicit PastelFiles(Tolmen& app);
  ~PastelFiles();
  PastelFiles(const PastelFiles&) = delete;
  PastelFiles& operator=(const PastelFiles&) = delete;

  // The objects, each created when first asked for.
  pasGParm& GParm();
  pasDCParm& DCParm();
  pasUser& User();
  pasUParm& UParm();
  pasTaxParameters& TaxParameters();
  pasDebtor& Debtor();
  pasDelivery& Delivery();
  pasDcodeFile& DcodeFile();

  // How many of the eight objects exist now.
  int LiveObjects() const;

  // CLOSE_ on every object that exists, in the order debtor, delivery, DC parameters,
  // categories, user, system parameters, GL parameters, tax table, passing over run-time errors;
  // then all eight are released.
  void CloseAndReleaseAll();
  // Releases the system parameters' object (it is not closed here).
  void ReleaseUParm();

  // Closes the Maximizer client file; ClosePasFiles calls it when it is set.
  std::function<void(Tolmen&)> closeClientFile;

  // Where pasDebtor, pasHisHeader and pasHisDetail send the records they write; set by the run
  // when it opens its import files. While none is set, a written record goes nowhere.
  ImportLineSink* lineSink = nullptr;

  // ClosePasFiles' guard against re-entry.
  bool closing = false;

 private:
  Tolmen& app_;
  std::unique_ptr<pasGParm> gparm_;
  std::unique_ptr<pasDCParm> dcparm_;
  std::unique_ptr<pasUser> user_;
  std::unique_ptr<pasUParm> uparm_;
  std::unique_ptr<pasTaxParameters> tax_;
  std::unique_ptr<pasDebtor> debtor_;
  std::unique_ptr<pasDelivery> delivery_;
  std::unique_ptr<pasDcodeFile> dcode_;
};

}  // namespace tolmen
