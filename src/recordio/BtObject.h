// The members a record class shows the record manager's one path (GlobalIO): the file, its open
// state and status, the position block and buffers, and the record image's staging. Every record
// class (the Pastel files, the Maximizer client file) derives from it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/recordmanager/BtrCodes.h"

namespace tolmen {

class BtObject {
 public:
  BtObject(std::string className, int32_t recordLength)
      : DBLen(recordLength), RecordLength(recordLength), ClassName(std::move(className)) {}
  virtual ~BtObject() = default;

  // Copies between the record image and DataBuf: direction 0 before a call (image to buffer,
  // unless BufferHeld), any other direction after it (buffer to image). Clears BufferHeld.
  virtual void MoveBuffer(int16_t direction) = 0;

  std::string FileName;
  bool IsOpen = false;
  int16_t STATUS_ = kStatusOk;
  std::string PosBlk = std::string(128, ' ');
  std::string DataBuf;
  int32_t DBLen;
  std::string KeyBuf;
  int16_t KBLen = 255;
  int16_t KeyNum = 0;
  int32_t RecordLength;
  std::string ClassName;
  bool BufferHeld = false;
};

}  // namespace tolmen
