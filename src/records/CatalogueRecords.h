// The section records of the catalogues: one type per catalogue, with one record per shape family.
//
//     const auto& beam = dynamic_cast<const EUROPEANSECTION::IPEShape&>(*record);
//     double depth = beam.D; // in the unit of the table's column D
//
// Families alike are alike in their records: each is the record of the family's layout.
#pragma once

#include "records/LayoutRecords.h"

/// Shapes that most hot-rolled catalogues have alike.
struct COMMONSECTION {
    using Channel = ChannelRecord;
    using Angle = AngleRecord;
    using Tube = RectangularTubeRecord;
    using Pipe = RoundTubeRecord;
};

/// Cold-formed sections, as several catalogues have them.
struct COLDFORMEDSECTION {
    using AngleWithoutLips = ColdFormedAngleRecord;
    using AngleWithLips = ColdFormedAngleLippedRecord;
    using ChannelWithoutLips = ColdFormedChannelRecord;
    using ChannelWithLips = ColdFormedChannelLippedRecord;
    using ZeeWithoutLips = ColdFormedZeeRecord;
    using ZeeWithLips = ColdFormedZeeLippedRecord;
    using Hat = HatRecord;
    using Pipe = RoundTubeRecord;
    using Tube = RectangularTubeRecord;
    using EaveStruts = EaveStrutRecord;
};

/// Hollow sections, as several catalogues have them.
struct HOLLOWSECTION {
    using RHS = RectangularTubeRecord;
    using SHS = RectangularTubeRecord;
    using CHS = RoundTubeRecord;
};

/// Hot-rolled sections, as several catalogues have them.
struct HOTROLLEDSECTION : COMMONSECTION {
    using IPEShape = IShapeRecord;
    using HEShape = IShapeRecord;
    using IPNShape = IShapeRecord;
};

struct AISCSECTION {
    using AM_WShape = IShapeRecord;
    using AM_MShape = IShapeRecord;
    using AM_SShape = IShapeRecord;
    using AM_BShape = IShapeRecord;
    using AM_HPShape = IShapeRecord;
    using AM_Channel = ChannelRecord;
    using AM_MCChannel = ChannelRecord;
    using AM_Angle = AngleRecord;
    using AM_Tube = RectangularTubeRecord;
    using AM_Pipe = RoundTubeRecord;
    using AM_HSSRectangle = RectangularTubeRecord;
    using AM_HSSRound = RoundTubeRecord;
    using AM_HSSRectangleA1085 = RectangularTubeRecord;
    using AM_HSSRoundA1085 = RoundTubeRecord;
    using AM_CastellatedNonCompBeam = CastellatedRecord;
    using AM_CastellatedCompBeam = CastellatedRecord;
    using AM_Rod = RoundBarRecord;
    using AM_Cable = CableRecord;
};

struct AUSTRALIANSECTION : COMMONSECTION, HOLLOWSECTION {
    using UBShape = IShapeRecord;
    using UCShape = IShapeRecord;
    using WBShape = IShapeRecord;
    using WCShape = IShapeRecord;
};

struct BRITISHSECTION : COMMONSECTION {
    using UBShape = IShapeRecord;
    using UCShape = IShapeRecord;
    using UPShape = IShapeRecord;
    using JOShape = IShapeRecord;
};

struct CANADIANSECTION : COMMONSECTION {
    using WShape = IShapeRecord;
    using MShape = IShapeRecord;
    using SShape = IShapeRecord;
    using HPShape = IShapeRecord;
    using WWShape = IShapeRecord;
    using MCChannel = ChannelRecord;
    using HSSRectangle = RectangularTubeRecord;
    using HSSRound = RoundTubeRecord;
};

struct CHINESESECTION : COMMONSECTION {
    using IShape = IShapeRecord;
    using TShape = TeeRecord;
    using HShape = IShapeRecord;
};

struct DUTCHSECTION {
    using HEShape = IShapeRecord;
    using IPEShape = IShapeRecord;
    using IPNShape = IShapeRecord;
    using UPNChannel = ChannelRecord;
    using Angle = AngleRecord;
    using Tube = RectangularTubeRecord;
    using Pipe = RoundTubeRecord;
    using PlateStrip = RectangleRecord;
    using SolidRound = RoundBarRecord;
    using SolidSquare = RectangleRecord;
};

struct EUROPEANSECTION : HOLLOWSECTION {
    using HEShape = IShapeRecord;
    using DILShape = IShapeRecord;
    using IPNShape = IShapeRecord;
    using UChannel = ChannelRecord;
    using UPNChannel = ChannelRecord;
    using Angle = AngleRecord;
    using Tube = RectangularTubeRecord;
    using Pipe = RoundTubeRecord;
    using BulbFlat = BulbFlatRecord;
    using FlatBar = RectangleRecord;
    using HDShape = IShapeRecord;
    using HLShape = IShapeRecord;
    using HPShape = IShapeRecord;
    using IPEShape = IShapeRecord;
    using SolidSquare = RectangleRecord;
    using UPEChannel = ChannelRecord;
    using UAPChannel = ChannelRecord;
};

struct FRENCHSECTION : HOTROLLEDSECTION {};

struct GERMANSECTION {
    using IPEShape = IShapeRecord;
    using HEShape = IShapeRecord;
    using IShape = IShapeRecord;
    using UChannel = ChannelRecord;
    using Angle = AngleRecord;
    using Tube = RectangularTubeRecord;
    using Pipe = RoundTubeRecord;
};

struct INDIANSECTION : COMMONSECTION {
    using SShape = IShapeRecord;
    using IShape = IShapeRecord;
    using MShape = IShapeRecord;
    using WShape = IShapeRecord;
    using TShape = TeeRecord;
    using NPBShape = IShapeRecord;
    using WPBShape = IShapeRecord;
};

struct JAPANESESECTION : COMMONSECTION, HOLLOWSECTION {
    using HShape = IShapeRecord;
    using HShapeOld = IShapeRecord;
    using IShape = IShapeRecord;
    using TShape = TeeRecord;
    using CTShape = TeeRecord;
    using TShapeOld = TeeRecord;
};

struct RUSSIANSECTION : COMMONSECTION {
    using BShape = IShapeRecord;
    using SHShape = IShapeRecord;
    using KShape = IShapeRecord;
    using IShape = IShapeRecord;
};

struct SOUTHAFRICANSECTION {
    using IShape = IShapeRecord;
    using HShape = IShapeRecord;
    using PGShape = IShapeRecord;
    using CChannel = ChannelRecord;
    using Angle = AngleRecord;
    using Tube = RectangularTubeRecord;
    using Pipe = RoundTubeRecord;
};

struct SPANISHSECTION : HOTROLLEDSECTION {};

struct VENEZUELANSECTION : COMMONSECTION {
    using Beam = IShapeRecord;
};

struct KOREANSECTION : COMMONSECTION {
    using WShape = IShapeRecord;
    using HShape = IShapeRecord;
    using IShape = IShapeRecord;
    using WTShape = TeeRecord;
};

struct ALUMINUMSECTION {
    using AAStandardIBeams = IShapeRecord;
    using HBeam = IShapeRecord;
    using ArmyNavyIBeam = IShapeRecord;
    using AmericanStandardIBeam = IShapeRecord;
    using IBeam = IShapeRecord;
    using AAStandardChannel = ChannelRecord;
    using Channel = ChannelRecord;
    using ArmyNavyChannel = ChannelRecord;
    using SpecialChannel = ChannelRecord;
    using AmericanStandardChannel = ChannelRecord;
    using EqualLegAngle = AngleRecord;
    using SquareEndEqualLegAngle = AngleRecord;
    using UnequalLegAngle = AngleRecord;
    using SquareEndUnequalLegAngle = AngleRecord;
    using SquareTube = RectangularTubeRecord;
    using RectangularTube = RectangularTubeRecord;
    using RoundTube = RoundTubeRecord;
    using Pipe = RoundTubeRecord;
    using ArmyNavyTee = TeeRecord;
    using Tee = TeeRecord;
    using SpecialPipe = RoundTubeRecord;
    using Alloy = AluminiumAlloyRecord;
};

struct USCOLDFORMSECTION : COLDFORMEDSECTION {};
struct ISCOLDFORMSECTION : COLDFORMEDSECTION {};

struct MEXICANSECTION {
    using IEshape = IShapeRecord;
    using IRshape = IShapeRecord;
    using ISshape = IShapeRecord;
    using CEchanel = ChannelRecord;
    using LDangle = AngleRecord;
    using LIangle = AngleRecord;
    using OCpipe = RoundTubeRecord;
    using ORtube = RectangularTubeRecord;
    using ORtubeR = RectangularTubeRecord;
};

struct AISCSTEELJOISTSECTION {
    using Joist = JoistRecord;
    using JoistGirder = JoistGirderRecord;
};

struct AITCTIMBERSECTION {
    using GluedLaminatedTimber = TimberRecord;
    using SawnLumber = TimberRecord;
};

struct LYSAGHTSECTION {
    using ChannelWithLips = ColdFormedChannelLippedRecord;
    using ZeeWithLips = ColdFormedZeeLippedRecord;
};

struct BSCOLDFORMSECTION : COLDFORMEDSECTION {};

struct CANADIANTIMBERSECTION {
    using GluedLaminatedTimber = TimberRecord;
    using SawnLumber = TimberRecord;
};

struct BUTLERSECTION {
    using ZeePurlins = ColdFormedZeeLippedRecord;
    using EaveStruts = EaveStrutRecord;
    using BoxStruts = RectangularTubeRecord;
    using WideFlange = IShapeRecord;
    using TaperedWideFlange = IShapeRecord;
    using SolidRound = RoundBarRecord;
};

struct KINGSPANSECTION : COLDFORMEDSECTION {};
struct RCECOCOLDFORMSECTION : COLDFORMEDSECTION {};

struct JAPANESECOLDFORMSECTION {
    using BCP235325 = RectangularTubeRecord;
    using BCP325T = RectangularTubeRecord;
    using BCR295 = RectangularTubeRecord;
};

struct AUSCOLDFORMSECTION : HOLLOWSECTION {};

struct RUSCOLDFORMEDSECTION {
    using Pipe = RoundTubeRecord;
};

struct STOASCHMSECTION {
    using BShape = IShapeRecord;
    using SHShape = IShapeRecord;
    using KShape = IShapeRecord;
};

struct JINDALSECTION {
    using IPEShape = IShapeRecord;
    using HEShape = IShapeRecord;
    using UBShape = IShapeRecord;
    using UCShape = IShapeRecord;
    using ISMCShape = ChannelRecord;
    using NPBShape = IShapeRecord;
    using WPBShape = IShapeRecord;
};

struct EUCOLDFORMSECTION : HOLLOWSECTION {};
struct TATASTRUCTURASECTION : HOLLOWSECTION {};

struct BRAZILIANSECTION {
    using I = IShapeRecord;
    using WH = IShapeRecord;
    using WI = IShapeRecord;
    using T = TeeRecord;
    using Channel = ChannelRecord;
    using Angle = AngleRecord;
    using TRE = RectangularTubeRecord;
    using TQE = RectangularTubeRecord;
    using TCE = RoundTubeRecord;
    using Pipe = RoundTubeRecord;
    using CS = IShapeRecord;
    using CVS = IShapeRecord;
    using VS = IShapeRecord;
    using SShape = IShapeRecord;
};

struct APLAPOLLOTUBESSECTION : HOLLOWSECTION {};

struct USERSECTION : COMMONSECTION {
    using WideFlange = IShapeRecord;
    using DoubleAngle = DoubleAngleRecord;
    using Tee = TeeRecord;
    using General = GeneralRecord;
    using ISection = IShapeRecord;
    using Prismatic = RectangleRecord;
};

struct GENERICSECTION : COMMONSECTION {
    using WShape = IShapeRecord;
    using TShape = TeeRecord;
    using Rectangle = RectangleRecord;
    using Round = RoundBarRecord;
    using Zee = ColdFormedZeeLippedRecord;
    using General = GeneralRecord;
};
