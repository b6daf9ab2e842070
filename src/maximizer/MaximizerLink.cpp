#include "maximizer/MaximizerLink.h"

#include "platform/automation/MaximizerAutomation.h"
#include "runtime/RuntimeError.h"
#include "shell/Tolmen.h"

namespace tolmen {

MaximizerLink::MaximizerLink(Tolmen& app) : app_(app), clientFile_(app), clientList_(app) {}

MaximizerLink::~MaximizerLink() = default;

void MaximizerLink::Attach() {
  attach_ = MaxAttachObject::Attach(MaximizerSocketPath(), app_.clock);
  application_ = attach_->GetApplicationObject();
  record_ = attach_->GetCurrentRecordObject();
  if (keptWrites) record_->KeepWritesIn(keptWrites);
}

void MaximizerLink::Release() {
  application_.reset();
  record_.reset();
  attach_.reset();
}

MaxApplicationObject& MaximizerLink::Application() {
  if (!application_) throw RuntimeError(91);
  return *application_;
}

MaxRecordObject& MaximizerLink::Record() {
  if (!record_) throw RuntimeError(91);
  return *record_;
}

}  // namespace tolmen
