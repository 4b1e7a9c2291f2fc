#pragma once

#include "bench/Suite.h"

#include <vector>

// Times of what is too long, or changes too much, to be done again and again.

/// How long it took, once.
double Milliseconds(const Work& work);

double Median(std::vector<double> vTimes);

/// The median of several runs, each after what makes it ready.
double MedianOf(int nRuns, const Work& prepare, const Work& work);
