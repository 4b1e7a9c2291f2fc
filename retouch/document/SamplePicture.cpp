#include "document/SamplePicture.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <thread>
#include <vector>

namespace
{

constexpr int WIDTH = 1800;
constexpr int HEIGHT = 1200;

/// A colour in linear-looking units of 0 to 1; a place is in units of the picture's height.
struct Colour
{
    double r, g, b;
};

Colour Mix(Colour a, Colour b, double dShare)
{
    dShare = std::clamp(dShare, 0.0, 1.0);
    return {a.r + (b.r - a.r) * dShare, a.g + (b.g - a.g) * dShare, a.b + (b.b - a.b) * dShare};
}

/// 0 below the first edge, 1 above the second, smooth in between.
double SmoothStep(double dFirst, double dSecond, double d)
{
    const double t = std::clamp((d - dFirst) / (dSecond - dFirst), 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

/// 1 inside an ellipse, 0 outside, with an edge about as soft as dSoft.
double Ellipse(double x, double y, double xMiddle, double yMiddle, double rx, double ry, double dSoft)
{
    const double dDistance = std::hypot((x - xMiddle) / rx, (y - yMiddle) / ry);
    return 1 - SmoothStep(1 - dSoft / rx, 1 + dSoft / rx, dDistance);
}

double Hash(int x, int y)
{
    std::uint32_t u = static_cast<std::uint32_t>(x) * 374761393u + static_cast<std::uint32_t>(y) * 668265263u;
    u = (u ^ u >> 13) * 1274126177u;
    return (u ^ u >> 16) / 4294967295.0;
}

double ValueNoise(double x, double y)
{
    const int iX = static_cast<int>(std::floor(x));
    const int iY = static_cast<int>(std::floor(y));
    const double fx = SmoothStep(0, 1, x - iX);
    const double fy = SmoothStep(0, 1, y - iY);
    const double dTop = Hash(iX, iY) + (Hash(iX + 1, iY) - Hash(iX, iY)) * fx;
    const double dBottom = Hash(iX, iY + 1) + (Hash(iX + 1, iY + 1) - Hash(iX, iY + 1)) * fx;
    return dTop + (dBottom - dTop) * fy;
}

double Clouds(double x, double y)
{
    double dSum = 0;
    double dWeight = 0.5;
    for (int i = 0; i < 5; ++i, dWeight *= 0.5)
        dSum += dWeight * ValueNoise(x * (2 << i), y * (2 << i));
    return dSum;
}

/// The horizon runs uphill by about a degree and a half.
double HorizonAt(double x) { return 0.58 - 0.026 * x; }

Colour Sky(double x, double y)
{
    const double dHeight = y / HorizonAt(x);
    Colour c = Mix({0.20, 0.36, 0.62}, {0.98, 0.74, 0.52}, std::pow(dHeight, 1.7));
    const double dCloud = SmoothStep(0.50, 0.74, Clouds(x * 0.8 + 3, y * 2.1)) * (1 - 0.5 * dHeight);
    c = Mix(c, {1.0, 0.93, 0.88}, 0.75 * dCloud);
    const double dSun = std::hypot(x - 1.12, y - 0.40);
    c = Mix(c, {1.0, 0.88, 0.62}, 0.55 * std::exp(-dSun * dSun * 18));
    return Mix(c, {1.0, 0.97, 0.88}, 1 - SmoothStep(0.044, 0.050, dSun));
}

Colour Hills(double x, double y, Colour cBehind)
{
    for (int i = 0; i < 3; ++i)
    {
        const double dCrest = HorizonAt(x) - 0.13 + 0.045 * i - 0.09 * ValueNoise(x * (2.1 + i) + 11 * i, 7.3 * i) +
                              0.012 * ValueNoise(x * 26, i);
        const Colour cHill = Mix({0.50, 0.50, 0.60}, {0.13, 0.22, 0.19}, i / 2.0);
        const double dTexture = 0.06 * (ValueNoise(x * 90, y * 90) - 0.5);
        const Colour cTextured = {cHill.r + dTexture, cHill.g + dTexture, cHill.b + dTexture};
        cBehind = Mix(cBehind, cTextured, SmoothStep(dCrest - 0.0012, dCrest + 0.0012, y));
    }
    return cBehind;
}

Colour Water(double x, double y)
{
    const double dDepth = (y - HorizonAt(x)) / (1 - HorizonAt(x));
    const double dRipple = ValueNoise(x * 14, y * 160 / (1 + 4 * dDepth)) - 0.5;
    const double yMirrored = 2 * HorizonAt(x) - y * 0.8 - 0.12;
    Colour c =
        Mix(Sky(x + 0.02 * dRipple, std::clamp(yMirrored, 0.02, 0.55)), {0.08, 0.20, 0.28}, 0.35 + 0.45 * dDepth);
    const double dGlitter = std::exp(-std::pow((x - 1.12) / (0.03 + 0.16 * dDepth), 2));
    return Mix(c, {1.0, 0.86, 0.60}, dGlitter * SmoothStep(0.05, 0.4, dRipple) * 0.9);
}

Colour Landscape(double x, double y)
{
    const double dHorizon = HorizonAt(x);
    const double dWater = SmoothStep(dHorizon - 0.0008, dHorizon + 0.0008, y);
    if (dWater == 1)
        return Water(x, y);
    const Colour cLand = Hills(x, y, Sky(x, std::min(y, dHorizon)));
    return dWater == 0 ? cLand : Mix(cLand, Water(x, y), dWater);
}

/// A wall with a window frame at the right edge: flat colours with sharp borders.
constexpr double WALL_LEFT = 1.30;
constexpr double WALL_TOP = 0.30;
bool IsWall(double x, double y) { return x >= WALL_LEFT && y >= WALL_TOP; }

Colour Wall(double x, double y, Colour cBehind)
{
    if (!IsWall(x, y))
        return cBehind;
    const double u = x - WALL_LEFT;
    const double v = y - WALL_TOP;
    if (v < 0.018 || u < 0.014)
        return {0.36, 0.22, 0.16};
    const bool bWindow = u > 0.07 && u < 0.16 && v > 0.10 && v < 0.36;
    const bool bFrame = u > 0.058 && u < 0.172 && v > 0.088 && v < 0.372;
    if (bWindow)
        return std::abs(u - 0.115) < 0.003 || std::abs(v - 0.23) < 0.003 ? Colour{0.94, 0.93, 0.90}
                                                                         : Colour{0.16, 0.24, 0.32};
    return bFrame ? Colour{0.94, 0.93, 0.90} : Colour{0.80, 0.33, 0.24};
}

Colour Eye(double x, double y, double xEye, double yEye, Colour c)
{
    c = Mix(c, {0.96, 0.95, 0.93}, Ellipse(x, y, xEye, yEye, 0.040, 0.022, 0.002));
    c = Mix(c, {0.25, 0.34, 0.42}, Ellipse(x, y, xEye, yEye, 0.020, 0.020, 0.002));
    c = Mix(c, {0.82, 0.08, 0.07}, Ellipse(x, y, xEye, yEye, 0.012, 0.012, 0.002));
    return Mix(c, {1.0, 1.0, 1.0}, Ellipse(x, y, xEye + 0.005, yEye - 0.006, 0.0035, 0.0035, 0.0012));
}

Colour Person(double x, double y, Colour c)
{
    const double dShade = 0.10 * SmoothStep(0.22, 0.52, x);
    c = Mix(c, {0.20, 0.13, 0.10}, Ellipse(x, y, 0.37, 0.70, 0.185, 0.235, 0.006));
    c = Mix(c, {0.16, 0.30, 0.44}, Ellipse(x, y, 0.37, 1.17, 0.34, 0.25, 0.004));
    c = Mix(c, {0.84 - dShade, 0.62 - dShade, 0.52 - dShade}, Ellipse(x, y, 0.37, 0.91, 0.062, 0.09, 0.004));
    c = Mix(c, {0.93 - dShade, 0.72 - dShade, 0.61 - dShade}, Ellipse(x, y, 0.37, 0.74, 0.140, 0.190, 0.004));
    c = Mix(c, {0.20, 0.13, 0.10}, Ellipse(x, y, 0.35, 0.565, 0.150, 0.060, 0.012));
    c = Mix(c, {0.93, 0.58, 0.52},
            0.35 * (Ellipse(x, y, 0.29, 0.80, 0.04, 0.03, 0.03) + Ellipse(x, y, 0.45, 0.80, 0.04, 0.03, 0.03)));
    c = Mix(c, {0.28, 0.18, 0.13},
            Ellipse(x, y, 0.315, 0.672, 0.042, 0.007, 0.004) + Ellipse(x, y, 0.425, 0.672, 0.042, 0.007, 0.004));
    c = Mix(c, {0.78, 0.55, 0.46}, 0.6 * Ellipse(x, y, 0.372, 0.790, 0.020, 0.010, 0.008));
    c = Mix(c, {0.72, 0.30, 0.30}, Ellipse(x, y, 0.37, 0.850, 0.050, 0.013, 0.004));
    c = Eye(x, y, 0.315, 0.715, c);
    c = Eye(x, y, 0.425, 0.715, c);
    return Mix(c, {0.45, 0.25, 0.20}, 0.9 * Ellipse(x, y, 0.462, 0.835, 0.005, 0.005, 0.002)); // a mole
}

/// What lay on the lens: small soft dark spots in the sky.
Colour Dust(double x, double y, Colour c)
{
    constexpr struct
    {
        double x, y, r;
    } SPOTS[] = {
        {0.62, 0.12, 0.009}, {0.88, 0.22, 0.006}, {0.17, 0.20, 0.011}, {1.34, 0.09, 0.008}, {0.74, 0.33, 0.005}};
    for (const auto& spot : SPOTS)
        c = Mix(c, {0.20, 0.22, 0.26}, 0.55 * Ellipse(x, y, spot.x, spot.y, spot.r, spot.r, 0.004));
    return c;
}

Colour Scene(double x, double y)
{
    const Colour cBehind = IsWall(x, y) ? Colour{} : Landscape(x, y);
    return Person(x, y, Dust(x, y, Wall(x, y, cBehind)));
}

BYTE Channel(double d, double dGrain) { return static_cast<BYTE>(std::clamp(d * 255 + dGrain, 0.0, 255.0)); }

void RenderRow(CPhoto& photo, int y)
{
    BYTE* pPixel = photo.Row(y);
    for (int x = 0; x < WIDTH; ++x, pPixel += 4)
    {
        const Colour c = Scene((x + 0.5) / HEIGHT, (y + 0.5) / HEIGHT);
        const double dGrain = 7 * (Hash(x + 9000, y) - 0.5);
        pPixel[0] = Channel(c.b, dGrain);
        pPixel[1] = Channel(c.g, dGrain);
        pPixel[2] = Channel(c.r, dGrain);
    }
}

} // namespace

CPhoto RenderSamplePicture()
{
    CPhoto photo(WIDTH, HEIGHT);
    std::atomic<int> yNext = 0;
    const auto renderRows = [&]
    {
        for (int y = yNext++; y < HEIGHT; y = yNext++)
            RenderRow(photo, y);
    };
    {
        std::vector<std::jthread> vWorkers;
        for (unsigned i = 1; i < std::thread::hardware_concurrency(); ++i)
            vWorkers.emplace_back(renderRows);
        renderRows();
    }
    return photo;
}
