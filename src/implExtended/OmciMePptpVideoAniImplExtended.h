#ifndef NRVK_IMPL_EXTENDED_PPTP_VIDEO_ANI_H
#define NRVK_IMPL_EXTENDED_PPTP_VIDEO_ANI_H

#include "OmciMePptpVideoUniIf.h"
#include "impl/OmciMePptpVideoAniImpl.h"
#include "implExtended/VideoPort.h"

/// Physical path termination point video ANI (G.988 9.13.2, class 90).
class OmciMePptpVideoAniImplExtended : public nrvk::VideoPort<OmciMePptpVideoAniImpl, OmciMePptpVideoUniIf>
{
public:
    using VideoPort::VideoPort;
};

#endif
