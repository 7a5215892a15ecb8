#ifndef NRVK_IMPL_EXTENDED_PPTP_VIDEO_UNI_H
#define NRVK_IMPL_EXTENDED_PPTP_VIDEO_UNI_H

#include "OmciMePptpVideoAniIf.h"
#include "impl/OmciMePptpVideoUniImpl.h"
#include "implExtended/VideoPort.h"

/// Physical path termination point video UNI (G.988 9.13.1, class 82).
class OmciMePptpVideoUniImplExtended : public nrvk::VideoPort<OmciMePptpVideoUniImpl, OmciMePptpVideoAniIf>
{
public:
    using VideoPort::VideoPort;
};

#endif
