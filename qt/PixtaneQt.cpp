#include "qt/PixtaneQt.h"

#include <stdexcept>

CPixtaneQt::CPixtaneQt()
{
    if (!AfxWinInit(nullptr, nullptr, nullptr, SW_SHOW))
        throw std::runtime_error("the Pixtane library did not start");
}

CPixtaneQt::~CPixtaneQt() { AfxWinTerm(); }
