// The section records of the American catalogue.
#pragma once

#include "records/LayoutRecords.h"

struct AISCSECTION {
    using AM_WShape = IShapeRecord;
    using AM_MShape = IShapeRecord;
    using AM_SShape = IShapeRecord;
    using AM_HPShape = IShapeRecord;
    using AM_BShape = IShapeRecord;
    using AM_Channel = ChannelRecord;
    using AM_MCChannel = ChannelRecord;
    using AM_Angle = AngleRecord;
    using AM_Tube = RectangularTubeRecord;
    using AM_Pipe = RoundTubeRecord;
    using AM_HSSRectangle = RectangularTubeRecord;
    using AM_HSSRound = RoundTubeRecord;
    using AM_CastellatedNonCompBeam = CastellatedRecord;
    using AM_CastellatedCompBeam = CastellatedRecord;
    using AM_Rod = RoundBarRecord;
    using AM_Cable = CableRecord;
};
