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

/// Weighs the pixels of an area by how close they are to a colour (0x00BBGGRR). pBits are the bottom-up rows, padded to
/// 4 bytes, of a bitmap of 24 or 32 bits a pixel; vMask has one byte for each of its pixels, top row first, without
/// padding. Only the part of rcArea inside the bitmap is written.
///
/// The distance is the largest difference of the three channels; a fourth byte is ignored. Up to the tolerance the
/// weight is 255, from there it falls evenly to 0 over the next 16 levels or a quarter of the tolerance (rounded down),
/// whichever is more: rounded to the nearest level, with an error of less than 1/8 level beyond that. A tolerance of 0
/// selects exactly the colour, one of 255 or more everything.
///
/// False, with nothing written, without bits, for other bit counts, sizes that are not positive, a mask of another
/// size, a negative tolerance or an area with no pixel inside the bitmap. Progress is told as by FeatherRegion. Any
/// thread.
bool CreateRegionFromColor(const unsigned char* pBits, BITMAPINFO& info, RECT& rcArea,
                           std::vector<unsigned char>& vMask, unsigned long crColor, int iTolerance,
                           void (*pfnProgress)(size_t, size_t));

/// How Resize finds a pixel between others.
enum RESIZE_ALGORITHM : int
{
    RESIZE_LINEAR = 1, ///< Bilinear where it grows, the average of the area where it shrinks.
    RESIZE_CUBIC = 2,  ///< Catmull-Rom, spread over the area where it shrinks. Edges are sharper and may overshoot.
};

/// Scales an image of 8 bits a pixel, in rows without padding here and in vResult, to iWidth x iHeight pixels. The
/// result's header is the source's with the new width, height and biSizeImage. Pixels are areas: the images' borders
/// lie on each other, and beyond them the outermost pixels go on for ever.
///
/// Each direction, down the columns first, is a sum with weights in units of 1/16384 that add up to exactly 1, rounded
/// to whole levels, halves upwards; except that halving both directions with RESIZE_LINEAR rounds the mean of each four
/// pixels once. So an even image stays as it is, and so does any image in a direction whose size does not change.
/// Besides the result, memory is taken for 32 rows of the source and for the weights.
///
/// pBits may be vResult's own bytes. False, with nothing written, without bits, for other bit counts and algorithms,
/// sizes that are not positive, fewer than width x height bytes, a result of more than 2^31 - 1 pixels, or if memory
/// runs out. Progress is told as by FeatherRegion. Any thread.
bool Resize(const unsigned char* pBits, size_t nBytes, const BITMAPINFO& info, std::vector<unsigned char>& vResult,
            BITMAPINFO& infoResult, int iWidth, int iHeight, RESIZE_ALGORITHM eAlgorithm,
            void (*pfnProgress)(size_t, size_t));

/// The weight of a pixel that a pen covers whole: pen and coverage weights go from 0 to it. Products with differences
/// of levels and of weights are exact in 24 and 32 bits, and ten dabs are right to 1/20 of a level.
inline constexpr int FULL_WEIGHT = 1 << 15;

/// The shapes that CreateMask makes.
enum emVXMaskType : int
{
    MASK_DISC = 0,
};

/// The largest mask that CreateMask makes.
inline constexpr int MAX_MASK_SIZE = 501;

/// Makes the weights of a pen, iSize x iSize of them row by row, and their header: 32 bits a pixel, with the number of
/// weights for biSizeImage, as BitBlt expects it.
///
/// The pen is a disc that fills the square. With r its radius, iSize / 2, the weight at a distance from its middle is
/// whole up to fHardness * r and falls along 1 - 3t^2 + 2t^3, t from 0 to 1, to 0 at r, averaged over one pixel along
/// the radius, which takes the steps off the rim of a hard disc. Weights are rounded to nearest, on a scale that makes
/// the highest of every pen FULL_WEIGHT. The pen is the same turned by quarters and mirrored.
///
/// False, with nothing written, for other types, a size that is not 1 to MAX_MASK_SIZE, a hardness that is not 0 to 1,
/// or if memory runs out. Any thread.
bool CreateMask(std::vector<int>& vWeights, BITMAPINFO& infoWeights, emVXMaskType eType, int iSize, float fHardness);

/// What BitBlt does with the pixels.
enum emBitBltFlag : int
{
    BITBLT_COPY = 0,
    BITBLT_STAMP = 1,
};

/// Copies pixels, or stamps a pen: cx x cy pixels, from (xSource, ySource) to (xDest, yDest), which count from the top
/// left as displayed. Only what lies inside both images is processed, which may be nothing.
///
/// Images are bottom-up rows, padded to 4 bytes, of 24 or 32 bits a pixel, the same for both. A weighted copy, one with
/// pWeights, moves each byte of a pixel towards the source's by weight / FULL_WEIGHT, rounded to the nearest level,
/// halves upwards: 0 changes nothing, FULL_WEIGHT copies. There is a weight for each pixel of the source image, read at
/// the source's position.
///
/// A stamp (bStampToWeights and BITBLT_STAMP) has weights for images, of a pen and of coverage: 32 bits a pixel, one
/// int each. With S the highest weight of the whole pen, coverage c below S becomes c + (S - c) * w / S, and c above
/// stays: repeated dabs come up to S and never beyond. The quotient is rounded to nearest, with an error of less than
/// 1/64 beyond that.
///
/// Weights lie row by row with the top row first, and go from 0 to FULL_WEIGHT. A weighted copy by others has colours
/// that mean nothing. The images must not overlap in memory.
///
/// False, with nothing written, without images, for other bit counts, sizes that are not positive, images of more than
/// 2^31 - 1 pixels, flags that contradict each other, fewer weights than the source has pixels, and for a stamp by
/// weights or with a pen that has others than 0 to FULL_WEIGHT. The result is the same on every machine. bReserved has
/// no meaning. Progress is told as by FeatherRegion. Any thread.
bool BitBlt(bool bStampToWeights, void* pDest, BITMAPINFO& infoDest, int xDest, int yDest, const void* pSource,
            const BITMAPINFO& infoSource, int xSource, int ySource, int cx, int cy, emBitBltFlag eFlag,
            const int* pWeights, size_t nWeights, bool bReserved, void (*pfnProgress)(size_t, size_t));

/// Where an image is changed, and by how much.
struct tagPROCESS_REGION
{
    RECT rcRegion;
    /// A byte for each pixel of the bitmap, top row first, without padding: 0 leaves the pixel, 255 changes it wholly.
    std::vector<unsigned char> vRegionMask;
};

/// Shifts hue, saturation and value of the pixels of a region: bottom-up rows, padded to 4 bytes, of a bitmap of 24 or
/// 32 bits a pixel, whose fourth byte stays. Only the part of the region inside the bitmap is written.
///
/// The value, the highest of the three channels, moves by dValue of the full scale of 255, the saturation by
/// dSaturation of 1, both cut off at the ends of their scales, and the hue by dHue of a full turn. What is not moved
/// stays: for a change of the value alone, all three channels grow by one factor. Greys have no hue: they stay grey,
/// and black becomes grey. The mask then weighs the step from the old to the new pixel. The levels are rounded to
/// nearest, with an error of less than 1/100 beyond that, and do not depend on the machine.
///
/// False, with nothing written, for fewer bytes than the header says, other bit counts, sizes that are not positive, a
/// mask of another size, a region with no pixel inside the bitmap, or numbers that are not finite. bReserved has no
/// meaning. Progress is told as by FeatherRegion. Any thread.
bool AdjustHSV(std::vector<unsigned char>& vBits, BITMAPINFO& info, tagPROCESS_REGION& region, double dHue,
               double dSaturation, double dValue, void (*pfnProgress)(size_t, size_t), bool bReserved);

} // namespace Vorpix
