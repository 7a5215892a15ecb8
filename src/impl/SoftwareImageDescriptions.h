#ifndef NRVK_IMPL_SOFTWARE_IMAGE_DESCRIPTIONS_H
#define NRVK_IMPL_SOFTWARE_IMAGE_DESCRIPTIONS_H

namespace nrvk {

/// Brings the software image instances in step with the file that the boot side keeps of its two slots. A file that
/// can't be read leaves them as they are; the log alone tells.
void readSoftwareImageDescriptions();

}  // namespace nrvk

#endif
