#include "host/insight/run_recorder.h"

#include <algorithm>

#include "frame/contract/quor_object_ui.h"
#include "host/application/forwarded_requests.h"

namespace quor {

namespace {

// The row at which a record set stands.
RecordedRow row_of(const Variant& value) {
  RecordedRow row;
  if (value.kind() != Variant::Kind::kRecordSet || !value.record_set()) return row;
  const Recordset& rows = *value.record_set();
  if (!rows.is_open() || rows.Bof() || rows.Eof()) return row;
  for (std::size_t i = 0; i < rows.field_count(); ++i) {
    row.values.emplace_back(rows.field_info({i}).name, rows.field(FieldHandle{i}));
  }
  return row;
}

// A value by itself: what hangs on to rows or objects would show what becomes of them later.
Variant plain(const Variant& value) {
  const auto kind = value.kind();
  const bool refers =
      kind == Variant::Kind::kRecordSet || kind == Variant::Kind::kObject || kind == Variant::Kind::kArray;
  return refers ? Variant() : value;
}

// Notes each request. Its record set is the engine's until the method has ended: where it is left standing is the row
// that was read.
class RecordedRequests : public ForwardedRequests {
 public:
  RecordedRequests(std::shared_ptr<QuorMainBO> requests, std::shared_ptr<Recording> recording)
      : ForwardedRequests(std::move(requests)), recording_(std::move(recording)) {}

  MethodResult RunMethod(const std::string& name, const std::string& parameter, std::int32_t flag) override {
    MethodResult result = ForwardedRequests::RunMethod(name, parameter, flag);
    recording_->open.push_back({{name, parameter, result.Code == 0 ? "" : result.Message, {}}, result.Value});
    return result;
  }

 private:
  const std::shared_ptr<Recording> recording_;
};

// The engine under the recorder's eyes.
class RecordedEngine : public QuorObjectUIO {
 public:
  RecordedEngine(std::shared_ptr<QuorObjectUIO> engine, std::shared_ptr<Recording> recording)
      : engine_(std::move(engine)), recording_(std::move(recording)) {}

  MethodResult Methods(const std::string& name, const Parameters& parameters) override {
    recording_->open.clear();  // what was asked between two calls is nobody's
    MethodResult result = engine_->Methods(name, parameters);
    RecordedCall call{.method = name,
                      .parameters = {},
                      .code = result.Code,
                      .message = result.Message,
                      .value = plain(result.Value),
                      .row = row_of(result.Value)};
    std::transform(parameters.begin(), parameters.end(), std::back_inserter(call.parameters), plain);
    for (Recording::Open& each : recording_->open) {
      each.request.row = row_of(each.value);
      call.requests.push_back(std::move(each.request));
    }
    recording_->open.clear();
    recording_->calls.push_back(std::move(call));
    return result;
  }

  std::string GetGUID() override { return engine_->GetGUID(); }
  std::string OID() const override { return engine_->OID(); }
  void OID(const std::string& value) override { engine_->OID(value); }
  std::string OIDR() const override { return engine_->OIDR(); }
  void OIDR(const std::string& value) override { engine_->OIDR(value); }
  std::string OName() const override { return engine_->OName(); }
  std::string OType() const override { return engine_->OType(); }
  void OType(const std::string& value) override { engine_->OType(value); }
  std::string Preview() const override { return engine_->Preview(); }
  void Preview(const std::string& value) override { engine_->Preview(value); }
  quor::Fields Fields() override { return engine_->Fields(); }
  std::shared_ptr<Recordset> RsFields() override { return engine_->RsFields(); }
  MethodResult Properties(const std::string& name, const std::string& parameter) override {
    return engine_->Properties(name, parameter);
  }
  SaveStatus Read() override { return engine_->Read(); }
  SaveStatus Save(std::int32_t flag, const std::string& parameter) override { return engine_->Save(flag, parameter); }
  void UI(std::shared_ptr<QuorObjectUI> value) override { engine_->UI(std::move(value)); }
  std::shared_ptr<QuorObjectUI> UI() const override { return engine_->UI(); }
  std::shared_ptr<QuorMainBO> BO() const override { return engine_->BO(); }
  void CancelUpdate() override { engine_->CancelUpdate(); }

 private:
  const std::shared_ptr<QuorObjectUIO> engine_;
  const std::shared_ptr<Recording> recording_;
};

}  // namespace

Variant RecordedRow::operator[](std::string_view field) const {
  const auto found = std::find_if(values.begin(), values.end(), [&](const auto& each) { return each.first == field; });
  return found == values.end() ? Variant(kNull) : found->second;
}

const RecordedRequest* RecordedCall::request(std::string_view name) const {
  const auto found =
      std::find_if(requests.rbegin(), requests.rend(), [&](const RecordedRequest& each) { return each.name == name; });
  return found == requests.rend() ? nullptr : &*found;
}

std::shared_ptr<QuorObjectUIO> RunRecorder::watch_calls(std::shared_ptr<QuorObjectUIO> engine) {
  return std::make_shared<RecordedEngine>(std::move(engine), recording_);
}

std::shared_ptr<QuorMainBO> RunRecorder::watch_requests(std::shared_ptr<QuorMainBO> requests) {
  return std::make_shared<RecordedRequests>(std::move(requests), recording_);
}

}  // namespace quor
