#include "document/Message.h"

std::string Message(const char* pszText, std::initializer_list<std::string> vArguments)
{
    QString strText = QCoreApplication::translate("Program", pszText);
    int iNumber = 0;
    for (const std::string& strArgument : vArguments)
        strText.replace("%" + QString::number(++iNumber), QString::fromStdString(strArgument));
    return strText.toStdString();
}
