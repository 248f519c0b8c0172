#pragma once
// A small year's plan written inline: the banks, the categories and their
// expenses, the income sources and the customers, with the gaps and odd
// corners a hand-edited file has.
namespace tallix::test {

inline constexpr const char* kPlanYear = R"(<tallix><financial-institutions>
  <financial-institution id="banks"><names><name id="First National">
    <bankaccount><account>Checking</account></bankaccount>
    <bankaccount><account>Savings</account></bankaccount></name>
    <name id="Credit Union"><bankaccount><account>Share Draft</account></bankaccount></name>
  </names></financial-institution>
  <financial-institution id="creditcards"><names><name id="Visa"/></names></financial-institution>
</financial-institutions><catagories>
  <category id="Food"><type>category</type><numberItems>2</numberItems><names>
    <name id="Trader Joe's"><!-- weekly shop --><category>Food</category><type>recurring</type>
      <account>Savings</account><closingday>15</closingday><institution>First National</institution>
      <reset/><amount>120.00</amount><months>
      <month><name>January</name><amount>100.00</amount><datepaid>1/3</datepaid>
        <duedate>1/5</duedate><status>paid</status><type>auto</type><check>1042</check></month>
      <month><name>February</name><amount>90.00</amount></month></months></name>
    <name id="Bakery"><category>Food</category><type>accumulate</type></name></names></category>
  <category id="Gifts"><type>category</type><numberItems>0</numberItems><names/></category>
  <category id="Car"><type>category</type><numberItems>1</numberItems><names>
    <name id="Bakery"><category>Car</category><type>auto</type></name></names></category>
</catagories><income>
  <name id="Salary"><institution>Credit Union</institution><account>Share Draft</account>
    <type>auto day</type><dayordate/><daynumber/><amount>2500.00</amount><months/></name>
  <name id="Pat's pension"><institution>First National</institution><account>Checking</account>
    <type>posted</type><dayordate/><daynumber/><amount>800.00</amount><months/></name>
</income><receivables>
  <revenue><line/><amount/><datepaid/><duedate/><status/><type/><check/></revenue>
  <name id="O'Neil"><number>C-7</number><institution>Credit Union</institution>
    <account>Share Draft</account><amount>45.00</amount><months>
    <month><item><line>4</line><amount>45.00</amount><datepaid>1/9</datepaid><duedate>1/10</duedate>
      <status>paid</status><type>receivable</type><check>88</check></item></month>
    <month/><month><item><line>2</line><amount>10.00</amount></item>
      <item><line>9</line><amount>35.00</amount></item></month></months></name>
  <name id="Acme"><number>C-9</number><institution/><account/><amount/><months/></name>
</receivables></tallix>)";

}  // namespace tallix::test
