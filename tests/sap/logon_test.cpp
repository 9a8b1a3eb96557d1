#include "sap/logon.h"

#include <gtest/gtest.h>

#include "tests/support/platform/expect_error.h"
#include "tests/support/sap/sap_shop.h"

namespace sapdi = platform::sapdi;

namespace {

// A company that writes down what it is told.
class RecordingCompany : public sapdi::Company {
  public:
    explicit RecordingCompany(std::string& log) : log_(log) {}
    void SetUseTrusted(bool trusted) override {
        trusted_ = trusted;
        log_ += trusted ? "trusted " : "untrusted ";
    }
    [[nodiscard]] bool UseTrusted() const override { return trusted_; }
    void SetDbUserName(std::string_view user) override { Write("dbuser", user); }
    void SetDbPassword(std::string_view password) override { Write("dbpassword", password); }
    void SetServer(std::string_view server) override { Write("server", server); }
    void SetCompanyDB(std::string_view database) override { Write("company", database); }
    void SetUserName(std::string_view user) override {
        userName_ = user;
        Write("user", user);
    }
    [[nodiscard]] std::string UserName() const override { return userName_; }
    void SetPassword(std::string_view password) override { Write("password", password); }
    void SetLanguage(int language) override { Write("language", std::to_string(language)); }
    [[nodiscard]] std::int32_t Connect() override { return -10; }
    void Disconnect() override { log_ += "disconnect "; }
    [[nodiscard]] sapdi::LastError GetLastError() const override { return {-10, "Login failed"}; }
    [[nodiscard]] std::string GetNewObjectKey() const override { return {}; }
    void StartTransaction() override { inTransaction_ = true; }
    void EndTransaction(sapdi::TransactionEnd end) override {
        log_ += end == sapdi::TransactionEnd::Commit ? "commit " : "roll-back ";
    }
    [[nodiscard]] bool InTransaction() const override { return inTransaction_; }
    [[nodiscard]] bool KeepsMarks() const override { return false; }
    [[nodiscard]] bool HasMark(std::string_view /*mark*/) const override { return false; }
    void AddMark(std::string_view /*mark*/) override {}
    std::unique_ptr<sapdi::BusinessObject> GetBusinessObject(sapdi::ObjectType /*type*/) override {
        return nullptr;
    }

  private:
    void Write(const char* what, std::string_view value) {
        log_ += std::string(what) + "=" + std::string(value) + " ";
    }
    std::string& log_;
    bool trusted_ = false;
    bool inTransaction_ = false;
    std::string userName_;
};

class RecordingConnector : public sapdi::Connector {
  public:
    std::unique_ptr<sapdi::Company> CreateCompany() override {
        return std::make_unique<RecordingCompany>(log);
    }
    std::string log;
};

class Logon : public testing::Test {
  protected:
    Logon() {
        shop.settings.SAPServer = "S";
        shop.settings.SAPUseTrusted = "";
        shop.settings.SAPDBUser = "sa";
        shop.settings.SAPDBPassword = "dbpw";
    }
    std::string Attempt() {
        connector.log.clear();
        EXPECT_FALSE(sap::LogonToSAP(shop.context, connector));
        return connector.log;
    }
    support::SapShop shop;
    RecordingConnector connector;
};

}  // namespace

TEST_F(Logon, ParametersInOrderAndTheFailureIsTold) {
    EXPECT_EQ(Attempt(),
              "untrusted dbuser=sa dbpassword=dbpw server=S company=Butikk user=manager "
              "password=hemmelig language=3 ");
    EXPECT_EQ(shop.theOperator.shown,
              std::vector<std::string>{
                  "Feil ved pålogging til SAP.\nSAP feilkode var -10: Login failed"});
    EXPECT_EQ(shop.theOperator.boxes, "!T ");
}

TEST_F(Logon, TrustedLogin) {
    shop.settings.SAPDBUser = " ";
    shop.settings.SAPDBPassword = "";
    for (const char* on : {"1", "Yes", "False", "false", "FALSE", " ", "00"}) {
        shop.settings.SAPUseTrusted = on;
        EXPECT_EQ(Attempt().find("trusted server=S"), 0U) << on;
    }
    shop.settings.SAPUseTrusted = "0";
    shop.theOperator.inputs = {"sa", "dbpw"};
    EXPECT_EQ(Attempt().find("untrusted dbuser=sa dbuser=dbpw server=S"), 0U)
        << "the prompted password replaces the user name";
}

TEST_F(Logon, PromptsForWhatIsBlank) {
    shop.settings.SAPUserName = "   ";
    shop.settings.SAPPassword = "";
    shop.settings.SAPDBPassword = " ";
    shop.theOperator.inputs = {"dbpw", "kari", "pw"};
    EXPECT_NE(Attempt().find("user=kari password=pw"), std::string::npos);
    std::string prompts;
    for (const platform::InputRequest& request : shop.theOperator.prompted) {
        prompts += request.title + ": " + request.text + (request.isPassword ? " (skjult)|" : "|");
    }
    EXPECT_EQ(prompts,
              "Pålogging: MSSQL passord? (skjult)|Pålogging: Bruker for SAP Business One?|"
              "Pålogging: Passord for 'kari'? (skjult)|");
}

TEST_F(Logon, ClosingEndsAnOpenTransaction) {
    (void)Attempt();
    connector.log.clear();
    sap::CloseSAPCompany(shop.context, sapdi::TransactionEnd::Commit);
    EXPECT_EQ(connector.log, "disconnect ");
    for (const auto end : {sapdi::TransactionEnd::Commit, sapdi::TransactionEnd::RollBack}) {
        (void)Attempt();
        connector.log.clear();
        shop.objects.SAPCompany->StartTransaction();
        sap::CloseSAPCompany(shop.context, end);
        EXPECT_EQ(connector.log, end == sapdi::TransactionEnd::Commit ? "commit disconnect "
                                                                      : "roll-back disconnect ");
    }
    support::ExpectError(
        91, [&] { sap::CloseSAPCompany(shop.context, sapdi::TransactionEnd::Commit); });
}
