#include "pastel/PastelFiles.h"

#include "pastel/pasDCParm.h"
#include "pastel/pasDcodeFile.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "pastel/pasGParm.h"
#include "pastel/pasTaxParameters.h"
#include "pastel/pasUParm.h"
#include "pastel/pasUser.h"
#include "runtime/Trap.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

template <typename T>
T& Lazy(Tolmen& app, std::unique_ptr<T>& object) {
  if (!object) object = std::make_unique<T>(app);
  return *object;
}

// CLOSE_ with every run-time error passed over.
void CloseQuietly(PastelRecord* record) {
  if (record) PassOver([record] { record->CLOSE_(); });
}

}  // namespace

PastelFiles::PastelFiles(Tolmen& app) : app_(app) {}
PastelFiles::~PastelFiles() = default;

pasGParm& PastelFiles::GParm() {
  return Lazy(app_, gparm_);
}
pasDCParm& PastelFiles::DCParm() {
  return Lazy(app_, dcparm_);
}
pasUser& PastelFiles::User() {
  return Lazy(app_, user_);
}
pasUParm& PastelFiles::UParm() {
  return Lazy(app_, uparm_);
}
pasTaxParameters& PastelFiles::TaxParameters() {
  return Lazy(app_, tax_);
}
pasDebtor& PastelFiles::Debtor() {
  return Lazy(app_, debtor_);
}
pasDelivery& PastelFiles::Delivery() {
  return Lazy(app_, delivery_);
}
pasDcodeFile& PastelFiles::DcodeFile() {
  return Lazy(app_, dcode_);
}

int PastelFiles::LiveObjects() const {
  return !!gparm_ + !!dcparm_ + !!user_ + !!uparm_ + !!tax_ + !!debtor_ + !!delivery_ + !!dcode_;
}

void PastelFiles::CloseAndReleaseAll() {
  CloseQuietly(debtor_.get());
  CloseQuietly(delivery_.get());
  CloseQuietly(dcparm_.get());
  CloseQuietly(dcode_.get());
  CloseQuietly(user_.get());
  CloseQuietly(uparm_.get());
  CloseQuietly(gparm_.get());
  CloseQuietly(tax_.get());
  debtor_.reset();
  delivery_.reset();
  dcparm_.reset();
  dcode_.reset();
  user_.reset();
  uparm_.reset();
  gparm_.reset();
  tax_.reset();
}

void PastelFiles::ReleaseUParm() {
  uparm_.reset();
}

}  // namespace tolmen
