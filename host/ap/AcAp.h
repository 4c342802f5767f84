// Document lock modes, as the document manager and its reactors speak of them.
#pragma once

namespace AcAp {

enum DocLockMode {
    kNone = 0x00,
    kAutoWrite = 0x01,  // the lock every running command holds
    kNotLocked = 0x02,
    kWrite = 0x04,      // an explicit lock for writing
    kProtectedAutoWrite = 0x14,
    kRead = 0x20,
    kXWrite = 0x40,
};

} // namespace AcAp
