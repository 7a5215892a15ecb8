// Requests about a live extended VLAN tagging entity.
#include <map>

#include "ExtendedVlanTaggingAccess.h"
#include "OmciMeExtendedVlanTaggingOperationConfigurationDataIf.h"
#include "control/ControlRequests.h"
#include "control/RequestFields.h"

namespace {
using Tagging = OmciMeExtendedVlanTaggingOperationConfigurationDataIf;
using Question = Json (*)(Tagging& tagging, const RequestFields& fields);

Json newestRow(Tagging& tagging, const RequestFields&)
{
    RecVlanTagFilData row{};
    nrvk::getRecVlanTagFilData(tagging, &row);
    const bool isEmpty = nrvk::getTableOfReceivedFrames(tagging).empty();
    return {{"result", isEmpty ? Json(nullptr) : values::to(row)}};
}

Json classifiedRule(Tagging& tagging, const RequestFields&)
{
    ExtendedVlanTaggingRuleContainer rule{};
    const int result = nrvk::parseReceivedFrameVlanTaggingOperationTable(tagging, &rule);
    return {{"result", result}, {"out", values::to(rule)}};
}

Json provisionEvc(Tagging& tagging, const RequestFields& fields)
{
    const auto frame = fields.get<RecVlanTagFilData>("frame");
    return {{"result", nrvk::sendEvcAndEvcMapToTmb(tagging, frame, fields.get<bool>("request"))}};
}

Json wholeTable(Tagging& tagging, const RequestFields&)
{
    const std::vector<RecVlanTagFilData> rows = nrvk::getTableOfReceivedFrames(tagging);
    return {{"result", {{"count", nrvk::getRuleCount(tagging)}, {"rows", values::to(rows)}}}};
}

Json eraseTable(Tagging& tagging, const RequestFields&)
{
    return {{"result", nrvk::deleteAllEntriesFromTableOfReceivedFrames(tagging)}};
}

Json askVlan(const Json& request)
{
    static const std::map<std::string, Question> questions = {{"row", newestRow},
                                                              {"rule", classifiedRule},
                                                              {"evc", provisionEvc},
                                                              {"table", wholeTable},
                                                              {"erase", eraseTable}};
    const RequestFields fields(request, "vlan", {"instance", "what", "frame", "request"});
    const auto instance = fields.get<unsigned short>("instance");
    const auto question = questions.find(fields.get<std::string>("what"));
    if (question == questions.end()) {
        throw BadRequest("vlan.what is one of row, rule, evc, table, erase");
    }
    Tagging* tagging = Tagging::getManagedEntityInstance(instance);
    if (tagging == nullptr) {
        throw BadRequest("there is no extended VLAN tagging entity " + std::to_string(instance));
    }
    return question->second(*tagging, fields);
}
}  // namespace

void ControlRequests::addVlanRequests()
{
    m_Requests["vlan"] = askVlan;
}
