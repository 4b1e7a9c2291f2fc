#pragma once

#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>
#include <string>

/// What libjpeg calls when it cannot go on: back to the place that said setjmp(errors.jump). Between the two nothing
/// may need a destructor. Warnings are not printed.
struct JpegErrors
{
    jpeg_error_mgr manager = {}; // First, since libjpeg knows this part alone.
    std::jmp_buf jump = {};
    char szReason[JMSG_LENGTH_MAX] = "";

    JpegErrors()
    {
        jpeg_std_error(&manager);
        manager.error_exit = [](j_common_ptr pJpeg)
        {
            auto* pErrors = reinterpret_cast<JpegErrors*>(pJpeg->err);
            pErrors->manager.format_message(pJpeg, pErrors->szReason);
            std::longjmp(pErrors->jump, 1);
        };
        manager.output_message = [](j_common_ptr) {};
    }
};
