<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>BinaryPlistReader</name>
    <message>
        <source>its values are nested more than %1 levels deep</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it holds more than %1 values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its object table is broken</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it holds a text with a null character</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has an unusable dictionary key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a value contains itself</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BondAssessor</name>
    <message>
        <source>Unable to load essential resources from %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BondPortfolio</name>
    <message>
        <source>A bond without an issue date cannot be redeemed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The redemption month cannot be before the issue month, %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These bonds cannot be cashed before %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose from 1 to %1 bonds to redeem.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BondPortfolioFile</name>
    <message>
        <source>A portfolio cannot be saved as &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The portfolio could not be encoded.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CalculatorListImport</name>
    <message>
        <source>This is not a list saved from the Treasury&apos;s Savings Bond Calculator: it has no %1 field.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bond %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown series &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no issue month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no denomination</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The calculator&apos;s list is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2: the database has no values for them</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CliText</name>
    <message>
        <source>unexpected argument &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no redemption value database found: the program&apos;s own copy (%1) is missing and %2 is not set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the redemption value database %1 does not exist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a redemption value database (it holds no redemption months)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: no such portfolio file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot open the portfolio: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>vCard file that names the portfolio&apos;s people (default: $%1, else %2 beside the portfolio, else your own people file).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 person named in %1 is not in %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 people named in %2 are not in %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Valuation month, YYYY-MM (default: the latest month with values, or this month if earlier).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the valuation month must be written YYYY-MM, not &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>quillmere-cli: warning: %1; their names are left out (name the people file that holds them with --people FILE)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; the file is unchanged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot save the portfolio: %2%3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the database has no value for this bond in that month; &quot;quillmere-cli update&quot; installs newer values once the Treasury has published them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 were first issued in %2; no values exist for this issue month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 were last issued in %2; no values exist for this issue month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>this bond was issued in %1, after the valuation month; it has no value before then</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 bond without pricing data is not in these totals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 bonds without pricing data are not in these totals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cumulative</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>yearly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Series</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Qty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issued</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issue price</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yield</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Growth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Registration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Portfolio:   %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Valued as of %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People:      %1

</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(none)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[quantity below 1: counts as no bonds] %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(* electronic; face value and issue price are per bond, the totals are for all bonds)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>([computed] %1)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>([no pricing data] %1)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
Interest earned by tax year (%1):
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  (none)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Builds a redemption value database from Treasury value files (sbYYYYMM.asc) and
Fiscal Data value files (.csv), adding the values of matured bonds carried forward
and those of Series EE bonds of a fixed rate, computed from the built-in rate table.
FILE is replaced only when the whole build succeeds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database file to write.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The value files to build from.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>build-database needs at least one source file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--out FILE SOURCE...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>build-database needs --out FILE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>database not built: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Built %1: %2 values in %3 installed files (the sources and the values of matured bonds), redemption months %4 to %5
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>build-database --out FILE SOURCE...  build a redemption value database</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Prints the path of the redemption value database, its earliest and latest
redemption months, its number of values and its installed files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Database:                   %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Earliest redemption month:  %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Latest redemption month:    %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values:                     %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installed files:            %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>database                 where the redemption value database is and what it holds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writes every holding of a portfolio, with its figures as of the valuation month, to a CSV file (ISO Latin 1, line feeds).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The portfolio document.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The CSV file to write (replaced if it exists).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>export-csv needs a portfolio file and an output file (see --help)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exported %1 holdings as of %2 to %3
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writes PriceList.qif and Positions.qif for a portfolio into a directory; numbered names (PriceList-1.qif, ...) when a price list is already there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An existing directory to write into.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>export-qif needs a portfolio file and a directory (see --help)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: no such directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>export-qif FILE DIR [--as-of YYYY-MM] [--people FILE]   write Quicken price list and positions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Appends the bonds of a CSV file to a portfolio and saves it (a new portfolio is created when FILE does not exist). Lines that cannot be read, H and HH bonds among them, are skipped.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>own (written by Quillmere, line feeds) or wizard (Savings Bond Wizard 4.10, CR LF).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save even though people the portfolio names are not in the people file: they and their roles are dropped.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The CSV file to read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>import-csv needs a portfolio file and a CSV file (see --help)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--format own|wizard [options] FILE CSV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--format own|wizard is required</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown format &apos;%1&apos; (use own or wizard)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: no such file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; saving would drop them and every role that names them. Name the people file that holds them with --people FILE (or %2), or give --drop-missing-people to save without them. Nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Created %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>import-csv FILE CSV --format own|wizard [--people FILE] [--drop-missing-people]   add the bonds of a CSV file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installs Treasury savings bond value files (sbYYYYMM.asc) or Fiscal Data value
files (.csv) into the redemption value database, each in one transaction.
Values the database already holds are passed over and months it holds without
data are filled in; a file whose values contradict it is refused. Values the
program derived (matured bonds, EE bonds of a fixed rate) give way to the file&apos;s
official ones, and a difference between them is reported. Then matured bonds keep
their value and fixed-rate EE bonds are computed up to the latest month. Each file
is recorded under its name, so the updater never offers it again.
The database is QUILLMERE_DATABASE, or the working copy in the user&apos;s data folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The value files to install, in order.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>install-treasury-file needs a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no redemption value database found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the redemption value database %1 cannot be written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot open the redemption value database %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>install-treasury-file FILE...  install Treasury value files into the database</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writes sample.%1 and people.vcf into a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Where the two files go (created if needed).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>give the folder to write to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>could not create %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wrote %1 and %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>make-sample FOLDER</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writes an update directory from the same sources build-database uses: one price
data file per source, named as the built database records it, the values of
matured bonds carried forward, and the catalogue %1
listing them in installation order. Serve DIR from any static web server.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The directory to write (created if needed).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The value files to publish.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>publish needs at least one source file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--out DIR SOURCE...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>publish needs --out DIR</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: this name is reserved for the derived values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: this name cannot be published</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot create the directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Published %1 price data files (%2 records) and %3 in %4
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>publish --out DIR SOURCE...  write an update directory for the updater</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows a portfolio: every holding&apos;s figures, totals and the interest summary.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interest earned within each year instead of cumulative.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print JSON for scripts (money in pennies).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The portfolio (.%1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>which portfolio? Give one file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>give one portfolio file only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>show FILE [--as-of YYYY-MM] [--yearly] [--json] [--people FILE]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>downloading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asks the Treasury&apos;s Fiscal Data service for every redemption month the redemption value
database lacks official values for, and installs them in one step (all or nothing).
With --catalogue, fetches the catalogue %1 from an update directory instead
and installs every price data file it lists that the database lacks.
The database is QUILLMERE_DATABASE, or the working copy in the user&apos;s data folder.
Exit status 0 when the check, or every installation, succeeded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only report what would be installed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use an update directory&apos;s catalogue instead of Fiscal Data.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use the Fiscal Data service even when the settings name a catalogue.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update directory; implies --catalogue (default: the %1 variable, the &apos;%2&apos; setting, or %3).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Fiscal Data service root (default: the %1 variable, the &apos;%2&apos; setting, or %3).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give up when the whole download takes longer than this (default: %1 seconds without a byte, %2 in all).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--catalogue and --base-url do not go with --fiscal-data or --service-url</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--timeout needs a number of seconds up to 3600</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not an absolute URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not an absolute http or https URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>update [--check] [--catalogue [--base-url URL]]  install new redemption values from the Treasury</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no pricing data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not yet redeemable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The value of one savings bond as of a month.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>E, EE, I or SN (Savings Note).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face value in dollars.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issue month, YYYY-MM.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The bond was bought electronically, not on paper.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--series S --face DOLLARS --issued YYYY-MM [options]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--%1 is required</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown series &apos;%1&apos; (use E, EE, I or SN)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the face value must be a positive number of dollars, not &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the issue month must be written YYYY-MM, not &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Series:          %1 (paper)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Series:          %1 (electronic)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face value:      %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issued:          %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value as of:     %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issue price:     %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value:           %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interest earned: %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Computed:        %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note:            %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>value --series S --face DOLLARS --issued YYYY-MM [--as-of YYYY-MM] [--electronic]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Usage: quillmere-cli COMMAND [OPTIONS]

Commands:
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>quillmere-cli: unknown command &apos;%1&apos;
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>computed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tax year %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No interest to report for %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Household total: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>final maturity %1, interest so far %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows what each owner reports as savings bond interest for a tax year.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The tax year (default: this year).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a year; give it as YYYY</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>tax-report FILE [--year YYYY] [--json] [--people FILE]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
Run &apos;quillmere-cli COMMAND --help&apos; for the options of one command; &apos;quillmere-cli --version&apos; prints
the version, &apos;quillmere-cli --man&apos; the manual page.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>savings bond values, portfolios, exports and updates from the command line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> COMMAND [OPTIONS] [ARGUMENTS]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values United States savings bonds (Series E, EE, I and Savings Notes) from the Treasury&apos;s redemption values, shows, exports and imports the portfolios the window keeps, and updates the redemption value database. Every sub-command takes --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COMMANDS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The command did what was asked (a check found nothing new counts too).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The command failed, or its options or arguments were wrong; standard error says why, as &quot;quillmere-cli: ...&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No command, or one that does not exist, was named.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>YTD interest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Matures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next rise</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Appends the bonds of a list saved from the Treasury&apos;s Savings Bond Calculator (the saved HTML page) to a portfolio, as paper bonds, and saves it (a new portfolio is created when FILE does not exist).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The saved calculator page.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>import-calculator needs a portfolio file and a saved page (see --help)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[options] FILE HTML</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot be read: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Imported %1 of %2 bonds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skipped %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>import-calculator FILE HTML [--people FILE]   add the bonds of a saved Treasury calculator list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writes Bonds.qif (securities, purchases with their cost, monthly prices) and BondPrices.csv (the prices again, for GnuCash&apos;s price import) for a portfolio into a directory; numbered names (Bonds-1.qif, ...) when either is already there. Prices run from each bond&apos;s issue to the valuation month.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>export-finance needs a portfolio file and a directory (see --help)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Securities: %1; prices in each file: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>export-finance FILE DIR [--as-of YYYY-MM] [--people FILE]   write a QIF and price CSV for GnuCash and KMyMoney</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writes the inventory of a portfolio as a PDF: every bond grouped by owner with its figures, notes and the people named on it, a subtotal per owner and the household&apos;s total.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The paper, letter or a4 (default: letter).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The PDF file to write.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>inventory needs a portfolio file and a PDF file to write (see --help)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the paper must be letter or a4, not &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot write the inventory: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wrote the inventory of %1 bonds to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>inventory FILE OUT.pdf [--as-of YYYY-MM] [--people FILE] [--paper letter|a4]   write the household&apos;s inventory as PDF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write for spreadsheets (LibreOffice, Excel): UTF-8 with a byte order mark, dates as YYYY-MM-01, fields with commas or quotes quoted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>export-csv FILE OUT [--as-of YYYY-MM] [--people FILE] [--spreadsheet]   write a portfolio&apos;s holdings as CSV</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CsvHoldingReader</name>
    <message>
        <source>empty line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>wrong number of fields (%1 where the header has %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HH bond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no series this program knows (&quot;%1&quot;)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DerivedValues</name>
    <message>
        <source>not redeemable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 issued %2, redeemed %3: derived %4, official %5</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2 official value(s) differ from the derived ones they replace: %3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DocumentManager</name>
    <message>
        <source>Open Portfolio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings bond portfolios (*.%1);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” could not be opened</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EntryRules</name>
    <message>
        <source>The quantity must be a whole number from 1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The face value must be an amount in dollars, such as 100 or $1,000.00.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A paper bond&apos;s face value is one of $10, $25, $50, $75, $100, $200, $500, $1,000, $5,000 or $10,000.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An electronic bond&apos;s face value is from $25.00 to $10,000.00, to the cent.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>E bonds and Savings Notes were sold on paper only.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 bonds were first sold electronically in %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The issue month must be a month written as MM/YYYY, such as 05/2003.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ExchangeAlerts</name>
    <message>
        <source>Import Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Imported %1 out of %2 bonds. (HH/H bonds not supported)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quillmere</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the Treasury Department&apos;s Savings Bond Wizard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import file corrupt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file you selected does not appear to be a CSV file produced by %1.  Please verify your choice and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to export data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You may now import your portfolio positions and pricelist from the files in %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Skipped %n line(s):</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n name(s) matched no one person in your people and were left off the bonds.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Its columns are those of a Savings Bond Wizard file: import it as one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its columns are those of a Quillmere file: import it as one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wrote %1 and %2 in %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In GnuCash or KMyMoney, import %1 with File ▸ Import ▸ QIF. GnuCash skips the prices of a QIF: import %2 afterwards with File ▸ Import ▸ Import Prices from a CSV file.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ExchangePanels</name>
    <message>
        <source>All bonds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected bonds only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export to CSV file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export To:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose Export Directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose or create a target directory for your export.
The directory will receive two QIF files:
a price list, and a list of your portfolio holdings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose File to Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a CSV file exported by either Quillmere or Savings Bond Wizard(R) 4.10.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quillmere CSV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings Bond Wizard CSV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose the Saved Calculator Page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Web pages (*.html *.htm);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a Directory for the GnuCash and KMyMoney Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dates and quoting for spreadsheets (LibreOffice, Excel)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ExportText</name>
    <message>
        <source>cannot write %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FiscalDataClient</name>
    <message>
        <source>the start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> to </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the latest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the reply runs to more than %1 pages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fiscal Data (%1), page %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the reply is larger than %1 bytes in all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fiscal Data (%1): the reply runs to %2 pages, more than %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fiscal Data (%1), page %2: the data set changed while it was read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fiscal Data (%1): %2 records arrived where the service announced %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fiscal Data lists %1, redemption month %2, issue year %3 twice with different values</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FiscalDataCsv</name>
    <message>
        <source>no header line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the header lacks the column &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>short line: %1 fields where the header has %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bad series letter %1 (expected E, N, I or S)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>non-numeric %1 %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bad %1 %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>redemption_year %1 is beyond next year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>issue year %1 is after redemption year %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>value %1 is out of range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>repeats the value of line %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FiscalDataPage</name>
    <message>
        <source>series_cd %1 is not E, N, I or S</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>redemp_period %1 is not a month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 is not a number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 disagrees with redemp_period %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the redemption month is missing (redemp_period, or redemption_year and redemption_month)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>redemption month %1-%2 is out of range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>issue_year %1 is not a year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>issue_year %1 is out of range for redemption month %2-%3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 is not an amount</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 is out of range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the reply is not JSON (%1 at byte %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the reply has no list of records (&quot;data&quot;)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the reply lacks its page count (&quot;meta&quot;: &quot;total-pages&quot;, &quot;total-count&quot;)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is not an object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>record %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Quillmere Help</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Holding</name>
    <message>
        <source>No pricing data available for bonds with that issue date. Do you need to update your bond values?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HoldingColumns</name>
    <message>
        <source>Series</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issue Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issue Price</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interest Earned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current Yield</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Growth Rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paper</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Co-owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Beneficiary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Registration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>YTD Interest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Final Maturity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next Increase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HoldingExplanations</name>
    <message>
        <source>the database has no value for this bond in that month. Tools ▸ Update Redemption Values… installs newer values once the Treasury has published them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 were first issued in %2; no values exist for this issue month.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 were last issued in %2; no values exist for this issue month.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>this bond was issued in %1, after the valuation month; it has no value before then.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 bond without pricing data is not in these totals</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n bonds without pricing data are not in these totals</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>computed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no pricing data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not yet redeemable</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HoldingPresentation</name>
    <message>
        <source>%1 and before</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>incomplete: no value for %n bond(s) in a December this figure needs</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>computed by this program, not published by the Treasury: Series EE bonds issued since May 2005 from their fixed rate, matured bonds from their value at final maturity, and 09/2001 to 02/2002, which the Treasury&apos;s files lack, filled between official months</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>computed by this program, not published by the Treasury</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the bond stopped earning at final maturity in %1 and keeps that value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>from the fixed rate this Series EE bond earns for life</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the Treasury&apos;s files lack 09/2001 to 02/2002; filled between the official months by the rule of the bond&apos;s interest period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>from the Series I fixed and inflation rates the Treasury announced</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 fixed, doubles at 20 years</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 fixed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 implied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NI not yet issued</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NE not redeemable until %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>P5 includes 3-month interest penalty until %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MA matured, no longer earning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 bond no longer earns interest: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 bonds no longer earn interest: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HoldingsTableModel</name>
    <message>
        <source>quantity below 1: counts as no bonds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid issue date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid kind of bond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid series</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid quantity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid face value</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>InstallationSummary</name>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installed %1: %2 new records, %3 already installed, %4 completed, %5 derived values replaced by official ones, %6 values of matured bonds carried forward, %7 values of fixed-rate EE bonds computed; redemption months %8 to %9</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>InterestSummaryModel</name>
    <message>
        <source>Tax Year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (incomplete)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>InventoryPrint</name>
    <message>
        <source>Series</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issued</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Qty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issue price</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Final maturity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next increase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People named</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Owner: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No owner named</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no pricing data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not yet redeemable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>computed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>quantity below 1: counts as no bonds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 bond without pricing data is not in these totals.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 bonds without pricing data are not in these totals.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings Bond Inventory: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Valued as of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Printed %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (continued)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subtotal: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subtotal: no owner named</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Household total</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face value and issue price are for all the bonds of a line; * marks electronic bonds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>computed: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, valued as of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the pages could not be painted</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KeyedArchiveDecoder</name>
    <message>
        <source>The file is not a Quillmere portfolio.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The portfolio file is damaged: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is too large to be a Quillmere portfolio.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it cannot be read as a property list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is not a Quillmere portfolio: its archive version is not %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has no object table</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it holds more than %1 objects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its object table does not begin with &quot;$null&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has no root object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a reference points to object %1, but there are only %2 objects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>object %1 contains itself</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its objects are nested more than %1 levels deep</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>object %1 is not an object of a known kind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the text object %1 has no text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the text object %1 contains a null character</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the class of object %1 has a name with a null character</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the date object %1 has no valid time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>object %1 has no &quot;%2&quot; list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the &quot;%2&quot; list of object %1 holds something other than references</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the dictionary object %1 has %2 keys but %3 values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the dictionary object %1 has a key that is not a text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the dictionary object %1 has the key &quot;%2&quot; twice</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>object %1 has more than %2 entries</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the value of &quot;%2&quot; in object %1 is of an unsupported kind</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KeyedArchiveEncoder</name>
    <message>
        <source>The archive could not be converted to a property list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data is too large to be saved in one file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data is nested more than %1 levels deep and cannot be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data refers back to itself and cannot be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A text contains a null character and cannot be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An invalid date cannot be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An object without a class name cannot be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An object of class %1 must be saved as a date, string, array or dictionary.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An object of class %1 has more than %2 keys and cannot be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An object of class %1 has an unusable key.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An array of class %1 cannot be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A dictionary of class %1 cannot be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A dictionary has the key &quot;%1&quot; twice and cannot be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The class %1 is described in two different ways.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ManPageText</name>
    <message>
        <source>SYNOPSIS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DESCRIPTION</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EXIT STATUS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User Commands</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NAME</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ENVIRONMENT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The redemption value database to use instead of the user&apos;s copy. It must be writable for updates.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The people file (vCard) to use instead of a %1 beside the portfolio or the user&apos;s own.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The root of the Fiscal Data service that updates ask; it overrides the setting %1. Default: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update directory read when updates come from a catalogue; it overrides the setting %1. Default: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Where the user&apos;s files and settings are kept, and where installed data is looked for.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FILES</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The redemption value database as shipped (under /usr/local when installed from source): a read-only seed, copied to the user&apos;s folder on first use.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user&apos;s copy of the database, which every portfolio reads and updates write to.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user&apos;s people (vCard), named as owners, co-owners and beneficiaries.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings: defaults of new bonds, the update source, column layout.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A sample portfolio, with the people file it names beside it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SEE ALSO</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MaturedBondCarryForward</name>
    <message>
        <source>not redeemable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Series E</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Series EE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Series I</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 issued %2 reached final maturity in %3, yet its value changes afterwards: %4 in %5 (%6) but %7 in %8 (%9)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MaturityNoticeBar</name>
    <message>
        <source>1 bond reaches final maturity in %1 and stops earning interest; %2 of interest becomes reportable for %1, even if not cashed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 bonds reach final maturity in %2 and stop earning interest; %3 of interest becomes reportable for %2, even if not cashed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the tax report…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Money</name>
    <message>
        <source>Value (%1) does not respond to -doubleValue.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NoticeBarLook</name>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>OfficialSourceInstaller</name>
    <message>
        <source>no value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot fill in %1, issue month %2: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: this name is reserved for the derived values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is already installed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was not installed: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>could not update summary tables: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, redemption month %2-%3, issue year %4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2, issue month %3-%4, redemption month %5-%6: %7 differs from the installed official value %8</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PagedHtml</name>
    <message>
        <source>Page %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PeoplePickerDialog</name>
    <message>
        <source>Add People</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Person</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Person…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This Is Me</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Contacts…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> (me)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Contacts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>vCard files (*.vcf *.vcard);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Imported %1 %2 (%3 already there).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>person</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>people</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PeopleStore</name>
    <message>
        <source>Could not read the people file %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not read the contacts file %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it holds no vCard contacts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not import %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not write the people file %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PeopleTableModel</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Co-owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Beneficiary</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Person</name>
    <message>
        <source>Deleted User</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PersonCreatorDialog</name>
    <message>
        <source>New Person</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>E-mail (home):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Person</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The address book could not be saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is added to this portfolio, but %2 could not be written: %3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Portfolio</name>
    <message>
        <source>Untitled</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PortfolioArchive</name>
    <message>
        <source>The portfolio file is damaged: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a title holder is not a person</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a person&apos;s identifier is not text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the list of holdings holds something else</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a holding appears twice</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a quantity is out of range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the holding&apos;s %1 is not a whole number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the holding&apos;s %1 is of the wrong kind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a holding&apos;s series is of the wrong kind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an issue date is out of range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an issue date is not a date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a serial number is not text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a holding&apos;s paper flag is not a yes or no</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the %1 are not a list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>title holders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is not a Quillmere portfolio.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>redeemed holdings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>yearly interest reporters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a redeemed holding has no redemption date</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PortfolioCsvImport</name>
    <message>
        <source>fewer than two lines after splitting at the line separator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>more than %1 lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is larger than %1 bytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file holds binary data, not text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the header is that of the other format</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PortfolioPrintLayout</name>
    <message>
        <source>Series</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issue Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issue Price</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interest Earned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Registration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings Note</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PortfolioReading</name>
    <message>
        <source>Could not open %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is far too large to be a portfolio.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PortfolioWindow</name>
    <message>
        <source>Select people to show only their bonds. Drop bonds on a person to name the owner; hold Ctrl+Shift for the co-owner, Ctrl for the beneficiary.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;b&gt;Interest earned by tax year&lt;/b&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cumulative</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Year by year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Portfolio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings bond portfolios (*.%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not save the portfolio to %1: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file on disk is unchanged.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The portfolio could not be saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert to Saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to revert to the most recently saved version of &quot;%1&quot;? Your current changes will be lost.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save changes?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to save the changes you made to &quot;%1&quot;?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your changes will be lost if you don&apos;t save them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Don&apos;t Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Revert to Saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print your portfolio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print Pre&amp;view…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export as P&amp;DF…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Bond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a new bond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Bond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove selected bond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export CSV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export portfolio to Comma Separate Values (CSV) file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export QIF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export portfolio to Quicken Interchange Format (QIF) file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import CSV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import bonds from a CSV file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Person</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add people to your portfolio titleholder&apos;s list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pr&amp;eferences…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Update Redemption Values…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Install Treasury Value File…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value &amp;Chart…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About Quillmere</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About Quillmere</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Portfolio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No recent portfolios</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toolbar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date as of which values are calculated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value as of</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name as Owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name as Co-owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name as Beneficiary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid valuation date</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Total of %n bond(s) shown: face value %1 · issue price %2 · interest %3 · value %4</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>People missing from the address book</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n person(s) named in this portfolio cannot be found in %1.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Saving now leaves them out, with every role that names them. Open the portfolio with the address book that holds them to keep them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Without Them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export as PDF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PDF documents (*.pdf)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bond %1 of %2: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n pasted bond(s) not added</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” could not be opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quillmere &amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;h3&gt;Quillmere %1&lt;/h3&gt;&lt;p&gt;Keeps track of a household&apos;s United States savings bonds, valued from the Treasury&apos;s redemption values.&lt;/p&gt;&lt;p&gt;Free software under the GNU General Public License, version 3 or later: you may share and change it; it comes with no warranty.&lt;/p&gt;&lt;p&gt;Redemption values and rates: the United States Department of the Treasury (its savings bond value files and Fiscal Data service), public domain as works of the United States government.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopped earning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show only the bonds past final maturity, which no longer earn interest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Treasury Calculator List…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Imported %1 of %2 bonds from the calculator&apos;s list, as paper bonds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skipped %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redeem…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record the selected bonds as cashed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tax Year…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redeem</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Held</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redeemed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The bonds the household holds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The bonds cashed, with what was received and the interest to report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>For &amp;GnuCash or KMyMoney…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Inventory as PDF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 inventory.pdf</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The inventory could not be written to %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print Inven&amp;tory…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Inventor&amp;y as PDF…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paper</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Electronic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Treasury (Fiscal Data service)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An update directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>https://example.org/bonddata/</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check for new redemption values automatically</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Once a day at most, after the program starts, while some values of the current month are missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Series of new bonds:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New bonds are bought on:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redemption values from:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update directory:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an absolute web address such as %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give the web address of the update directory.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PriceDataDownloader</name>
    <message>
        <source>unsupported address %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the reply is larger than %1 bytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>redirected to unsupported address %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the time allowed for the download ran out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the server answered with status %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the server fell silent for %1 seconds</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PriceDataFile</name>
    <message>
        <source>%1 bytes are not a whole number of %2-byte records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it holds no record</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>record %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>series code %1 is not E, N, I or S</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>redemption month %1-%2 is out of range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>issue year %1 is out of range for redemption year %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the value %1 of issue month %2 is out of range</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PriceDataInstaller</name>
    <message>
        <source>Unable to begin price update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installing updated prices...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to commit price update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data inconsistency; update canceled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Optimizing pricing data...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PriceSource</name>
    <message>
        <source>not a Treasury value file (.asc) nor a Fiscal Data value file (.csv)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: a source named %2 was given twice</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PriceUpdateRun</name>
    <message>
        <source>%1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the catalogue is empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 update(s) available</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading update %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download corrupt: %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the redemption value database cannot be opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All updates installed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PriceUpdateRunFiscalData</name>
    <message>
        <source>the redemption value database cannot be opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values for %1 are available</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading values from the Treasury...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading page %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installed values for %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Usage: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Options:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arguments:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RateTable</name>
    <message>
        <source>missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the header must begin %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 columns expected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>months must be YYYY-MM, the first not after the last</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the rate must be a percentage with at most two decimals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>each range must begin after the previous one ends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no rates</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RedeemDialog</name>
    <message>
        <source>Redeem Bonds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 holdings, all of their bonds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MM/YYYY</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What the bank paid. It starts at the value in the database for the month.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redemption month:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bonds redeemed:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount received:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount received in all:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redeem</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type the redemption month as MM/YYYY, such as 03/2021.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Holding %1 of %2: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type the amount received in dollars, such as 1,234.56.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RedeemedBondsPanel</name>
    <message>
        <source>Un-redeem</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put the selected bonds back among the bonds held</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete the selected redeemed bonds from the portfolio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 bond redeemed: received %1 · interest %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 bonds redeemed: received %2 · interest %3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RedeemedTableModel</name>
    <message>
        <source>Series</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Issue Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redeemed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount Received</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tax Year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>every year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid redemption month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type the month as MM/YYYY, such as 03/2021.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid amount</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type the amount received in dollars, such as 1,234.56.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SaveFailureReason</name>
    <message>
        <source>the disk is full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>permission denied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>read-only file system</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SeedDatabaseBuilder</name>
    <message>
        <source>%1: could not be installed: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: this name is reserved for the derived values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the derived values could not be installed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>could not build the summary tables: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot create its folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot create a temporary file beside it: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot leave write-ahead logging: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot be replaced by the new database</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Series</name>
    <message>
        <source>Series E bonds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Series EE bonds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Series I bonds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings Notes</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TaxYearDialog</name>
    <message>
        <source>Tax Year Report — %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tax year:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Owners who report interest every year, instead of when their bonds are cashed or reach final maturity:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export CSV…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export PDF…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plan for next year: no held bond reaches final maturity in %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 tax year %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report could not be exported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not write %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Tax Year Report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PDF documents (*.pdf)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TaxYearPrint</name>
    <message>
        <source>Savings Bond Interest for Tax Year %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Portfolio: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Printed %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TaxYearTable</name>
    <message>
        <source>Total for %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total without an owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Household</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Final maturity %1, interest so far %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TaxYearText</name>
    <message>
        <source>No owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (reports interest every year)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redeemed %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Final maturity %1, reportable even if not cashed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Earned in %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2 × %3, issued %4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, serial %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>estimated from the latest month the database has</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings bond interest is exempt from state and local income tax.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bonds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Event</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plan for next year: 1 holding reaches final maturity in %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plan for next year: %1 holdings reach final maturity in %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreasuryFileInstall</name>
    <message>
        <source>The redemption value database %1 cannot be opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The redemption value database %1 cannot be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installing %1…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Install Treasury Value File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Treasury value files (*.asc *.csv);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value file installed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing was installed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was not installed: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreasuryValueFile</name>
    <message>
        <source>field %1 is cut short</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>non-numeric value %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>short line %1: a line needs at least %2 characters (series, redemption year and month, issue year)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>line is longer than %1 characters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bad series letter %1 (expected E, N, I or S)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bad redemption year %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>redemption year %1 is beyond next year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bad redemption month %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bad issue year %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>issue year %1 is after redemption year %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 for issue month %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>repeats the series, redemption month and issue year of line %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UndoActionName</name>
    <message>
        <source>Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Insert Holding</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Holding</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit People</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redeem</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Un-redeem</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpdateAvailableBar</name>
    <message>
        <source>Update Now…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New redemption values through %1 are available.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New redemption values are available.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpdateCatalogue</name>
    <message>
        <source>catalogue too large</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a property list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the top level is not an array</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>entry %1 is not a string</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>entry %1 is empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the entry &quot;%1&quot; is not a file of the update directory</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpdateStatus</name>
    <message>
        <source>Checking for updates...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update information unavailable. Check internet connections and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your redemption values are up to date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some updates could not be performed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download corrupt; unable to update</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpdaterSession</name>
    <message>
        <source>Your installation cannot be updated.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your installation isn&apos;t writeable by the updater.  Typically this occurs when you continue to run the application from the downloaded DMG file.  The solution is to quit the application and install it properly by copying it to the Applications folder on your computer.  You may then re-launch the application from your Applications folder. Any portfolios you have created will not be affected by moving the application to its proper location.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit Quillmere</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpdaterWindow</name>
    <message>
        <source>Update Redemption Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check the Treasury&apos;s Fiscal Data service for redemption values your database lacks and install them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check the update directory %1 for new redemption values and install them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Install Updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VCardReader</name>
    <message>
        <source>unreadable line &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unsupported version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skipped the card starting at line %1: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skipped the card starting at line %1: its identifier %2 is used by an earlier card.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skipped the card starting at line %1: it has no END line.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ignored an END line without card at line %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ignored line %1 outside any card.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ValuationMonth</name>
    <message>
        <source>No pricing data available for bonds with that valuation date</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ValueChartDialog</name>
    <message>
        <source>Redemption value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value as of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redemption month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database holds no values for this bond.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>E bond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>I bond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EE bond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 issued %3, 1 bond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 issued %3, %4 bonds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Computed ahead</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Penalty ends %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Final maturity %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>XmlPlistReader</name>
    <message>
        <source>it holds more than %1 values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its values are nested more than %1 levels deep</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Keeps track of United States savings bonds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Portfolios to open (.bondportfolio).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the savings bond portfolio window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opens one window per portfolio named, or a new portfolio when none is; a portfolio already open raises its window. The window values every bond as of a chosen month, totals the portfolio, shows the interest per tax year, prints, exports CSV and QIF, imports CSV, and updates the redemption values. Help &gt; Quillmere Help (F1) is its manual.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The last window was closed, or --help or --version was given.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An unknown option was given.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
