#pragma once

#include "platform/framework.h"

#include <cstddef>
#include <vector>

/// The host's image-processing library.
namespace Vorpix
{

/// Softens the edge of a selection mask in place: iWidth x iHeight bytes, top row first, without padding. rcBox is the
/// box of the selected area; only that box grown by the kernel's reach and clipped to the image is written, and what
/// the mask holds outside of it counts as it is.
///
/// The kernel is close to a Gaussian with a standard deviation of exactly iRadius / 2, so a hard edge becomes soft over
/// about iRadius pixels to each side. In each direction, down the columns first, it is three boxes of iRadius pixels
/// and then [1 1] / 2 for an even, [1 6 1] / 8 for an odd radius, whose quarter of variance is what the boxes lack. Its
/// reach is (3 * iRadius - 1) / 2 pixels, rounded down. Beyond the image's border the outermost pixels go on for ever:
/// a fully selected mask stays so. Each direction is summed up exactly and rounded to whole levels, halves upwards,
/// with an error of less than 1/50 level beyond that. The result is the same on every machine and for any number of
/// threads, and the time taken does not grow with the radius up to 256; above, it is about twice as long.
///
/// A radius of 0 or less leaves the mask as it is, and one above 65536 or the longer side of the mask counts as that.
/// False, with nothing written, if a size is not positive, the mask has another size, the box has no pixel inside the
/// image, or memory runs out. pfnProgress, unless null, is called on the calling thread with the steps done and their
/// number. bReserved has no meaning. Any thread.
bool FeatherRegion(std::vector<unsigned char>& vMask, RECT& rcBox, int iRadius, int iWidth, int iHeight,
                   void (*pfnProgress)(size_t, size_t), bool bReserved);

/// Weighs how well pixels match a colour (0x00BBGGRR): pBits are a bottom-up bitmap of 24 or 32 bits as info tells, and
/// vMask has a byte for each pixel, top row first. A pixel's distance is the largest difference of its three channels.
/// Up to iTolerance the weight is 255; over the next 16 levels, or a quarter of the tolerance where that is more, it
/// falls evenly to 0, rounded to the nearest whole level. A tolerance of 0 weighs only the exact colour. Only the part
/// of rcArea inside the bitmap is written. False, with nothing written, for another format, a mask of another size, a
/// negative tolerance, or an area outside the bitmap. pfnProgress, unless null, is called once. Any thread.
bool CreateRegionFromColor(const unsigned char* pBits, BITMAPINFO& info, RECT& rcArea,
                           std::vector<unsigned char>& vMask, unsigned long uColour, int iTolerance,
                           void (*pfnProgress)(size_t, size_t));

/// How Resize makes the pixels between, or of several, others.
enum RESIZE_ALGORITHM : int
{
    RESIZE_SMOOTH = 1, ///< Bilinear where a side grows, the mean of the covered area where it shrinks.
    RESIZE_SHARP = 2,  ///< Catmull-Rom, stretched over the covered area where a side shrinks.
};

/// Resizes a picture of 8 bits a pixel, rows without padding, to iWidth x iHeight: each side on its own grows, shrinks
/// or stays. Pixels stand for their middles; beyond the border the outermost go on. The weights of a pixel are whole
/// 16384ths that add up to one, so one colour stays that colour, and a side that stays is copied; columns come first,
/// and each direction is rounded to whole levels, halves upwards. vOut becomes iWidth * iHeight bytes, and infoOut info
/// with the new size. False, with nothing written, for bits that are fewer than the header tells or not of 8 bits,
/// sizes that are not positive or whose product does not fit 31 bits, another algorithm, or when memory is short.
/// pfnProgress, unless null, is called once. Any thread.
bool Resize(const unsigned char* pBits, size_t nBytes, const BITMAPINFO& info, std::vector<unsigned char>& vOut,
            BITMAPINFO& infoOut, int iWidth, int iHeight, RESIZE_ALGORITHM eAlgorithm,
            void (*pfnProgress)(size_t, size_t));

} // namespace Vorpix
