"""A headless Chromium for tests."""

import time

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By


class Chromium:
    """Opens pages, and notes what the console says."""

    def __init__(self, downloads):
        options = Options()
        for argument in ("--headless=new", "--no-sandbox", "--disable-dev-shm-usage",
                         "--window-size=1280,1000"):
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        self.driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
        self.command("Browser.setDownloadBehavior", behavior="allow", downloadPath=str(downloads))

    def command(self, name, **parameters):
        return self.driver.execute_cdp_cmd(name, parameters)

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def find_all(self, selector):
        return self.driver.find_elements(By.CSS_SELECTOR, selector)

    def open(self, address):
        self.driver.get(address)

    def width(self, pixels):
        self.command("Emulation.setDeviceMetricsOverride", width=pixels, height=800,
                     deviceScaleFactor=1, mobile=pixels < 600)

    def scheme(self, name):
        self.command("Emulation.setEmulatedMedia",
                     features=[{"name": "prefers-color-scheme", "value": name}])

    def console(self):
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def close(self):
        self.driver.quit()


def wait_for(what, condition, seconds=20):
    """Waits until the condition holds, and answers its value."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"{what}: not within {seconds} s")
        time.sleep(0.02)
