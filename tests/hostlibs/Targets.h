#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <hwy/targets.h>

/// Has the vector code made for these instruction sets run, or the processor's best for 0.
inline void UseTargets(int64_t nTargets)
{
    hwy::SetSupportedTargetsForTest(nTargets);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
}

/// Runs a check on the code for each instruction set that the processor has.
template<class Check>
void OnEveryTarget(const Check& check)
{
    for (int64_t nLeft = hwy::SupportedTargets(); nLeft != 0; nLeft &= nLeft - 1)
    {
        SCOPED_TRACE(hwy::TargetName(nLeft & -nLeft));
        UseTargets(nLeft & -nLeft);
        check();
    }
    UseTargets(0);
}
